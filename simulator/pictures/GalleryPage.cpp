#include "simulator/pictures/GalleryPage.h"

namespace {

// Texts stand out from their grounds by 4.5:1 at least, in both appearances of the page.
constexpr const char* style = R"page(<style>
:root {
  color-scheme: light dark;
  --ground: #f4f6f5; --sheet: #ffffff; --text: #14231f; --quiet: #4c5d57; --edge: #75857f; --accent: #1d6b55;
  font: 15px/1.45 system-ui, sans-serif;
}
@media (prefers-color-scheme: dark) {
  :root { --ground: #0f1614; --sheet: #18211e; --text: #e6efeb; --quiet: #a5b5af; --edge: #7f918a; --accent: #7fd3b6; }
}
* { box-sizing: border-box; }
body { margin: 0; background: var(--ground); color: var(--text); }
header { padding: 12px 16px; background: var(--sheet); border-bottom: 1px solid var(--edge); }
@media (min-width: 700px) { header { position: sticky; top: 0; z-index: 1; } }
main { padding: 0 4px 32px 16px; }
h1 { margin: 0; font-size: 20px; }
h2 { margin: 24px 0 4px; font-size: 18px; }
h3 { margin: 0 0 8px; font-size: 15px; }
p { margin: 0 0 12px; color: var(--quiet); }
a { color: var(--accent); }
form { display: flex; flex-wrap: wrap; gap: 4px 24px; margin-top: 8px; align-items: center; }
form:not(.ready) { display: none; }
fieldset { display: flex; flex-wrap: wrap; gap: 4px 14px; margin: 0; padding: 0; border: 0; }
legend { float: left; margin-right: 14px; padding: 0; line-height: 32px; color: var(--quiet); }
label { display: inline-flex; gap: 6px; align-items: center; min-height: 32px; }
input { width: 18px; height: 18px; accent-color: var(--accent); }
output { color: var(--quiet); }
.scenes { display: flex; flex-wrap: wrap; gap: 24px 12px; }
figure { display: inline-block; width: 156px; margin: 0 12px 0 0; vertical-align: top; }
img { display: block; width: 100%; height: auto; border: 1px solid var(--edge); border-radius: 10px; }
figcaption { margin-top: 6px; }
figcaption div { display: flex; justify-content: space-between; align-items: center; margin-bottom: 4px; }
code { display: block; font: 12px/1.4 ui-monospace, "DejaVu Sans Mono", monospace; color: var(--quiet);
  overflow-wrap: anywhere; user-select: all; }
button { min-height: 32px; padding: 2px 10px; border: 1px solid var(--edge); border-radius: 8px;
  background: var(--sheet); color: var(--text); font: inherit; font-size: 13px; cursor: pointer; }
button:hover { border-color: var(--accent); }
:focus-visible { outline: 3px solid var(--accent); outline-offset: 2px; }
[hidden] { display: none; }
</style>
)page";

// Pictures carry their device and appearance; what is empty then goes, too.
constexpr const char* script = R"page(<script>
const form = document.querySelector("form");
function filter() {
  const wanted = new Set(new FormData(form).values());
  for (const figure of document.querySelectorAll("figure")) {
    figure.hidden = !wanted.has(figure.dataset.device) || !wanted.has(figure.dataset.appearance);
  }
  for (const part of document.querySelectorAll("article, section")) {
    part.hidden = !part.querySelector("figure:not([hidden])");
  }
  const count = document.querySelectorAll("figure:not([hidden])").length;
  form.querySelector("output").value = count === 1 ? "1 picture" : count + " pictures";
}
async function copy(button) {
  const code = button.closest("figcaption").querySelector("code");
  getSelection().selectAllChildren(code);
  const copied = await navigator.clipboard?.writeText(code.textContent).then(() => true, () => false);
  button.textContent = copied || document.execCommand("copy") ? "Copied" : "Selected";
  setTimeout(() => { button.textContent = "Copy"; }, 1500);
}
form.addEventListener("change", filter);
addEventListener("click", (event) => event.target.matches("button") && copy(event.target));
form.classList.add("ready");
filter();
</script>
)page";

/// A text as HTML has it between tags and in quotes.
std::string escaped(const std::string& text) {
    std::string html;
    for (const char character : text) {
        switch (character) {
        case '&':
            html += "&amp;";
            break;
        case '<':
            html += "&lt;";
            break;
        case '"':
            html += "&quot;";
            break;
        default:
            html += character;
        }
    }
    return html;
}

std::string attribute(const std::string& name, const std::string& value) {
    return " " + name + "=\"" + escaped(value) + "\"";
}

std::string choices(const std::string& what, const std::vector<std::string>& values) {
    std::string html = "<fieldset><legend>" + what + "</legend>";
    for (const std::string& value : values) {
        html += "<label><input type=\"checkbox\" name=\"filter\"" + attribute("value", value) + " checked>" +
                escaped(value) + "</label>";
    }
    return html + "</fieldset>\n";
}

std::string figure(const GalleryPicture& picture, const std::string& scene, const Device& device) {
    const std::string what = scene + " on " + device.name + ", " + picture.appearance;
    return "<figure" + attribute("data-device", device.name) + attribute("data-appearance", picture.appearance) +
           "><a" + attribute("href", picture.file) + "><img loading=\"lazy\"" +
           attribute("width", std::to_string(static_cast<int>(device.size.width))) +
           attribute("height", std::to_string(static_cast<int>(device.size.height))) + attribute("src", picture.file) +
           attribute("alt", what) + "></a>\n<figcaption><div>" + picture.appearance + "<button type=\"button\"" +
           attribute("aria-label", "Copy the command for " + what) + ">Copy</button></div><code>" +
           escaped(picture.command) + "</code></figcaption></figure>\n";
}

std::string section(const GalleryDevice& shown) {
    const Device& device = shown.device;
    std::string html = "<section><h2>" + escaped(device.name) + "</h2>\n<p>" +
                       std::to_string(static_cast<int>(device.size.width)) + " × " +
                       std::to_string(static_cast<int>(device.size.height)) + " points; all on one sheet:";
    for (const GalleryPicture& sheet : shown.sheets) {
        html += " <a" + attribute("href", sheet.file) + ">" + sheet.appearance + "</a>";
    }
    html += "</p>\n<div class=\"scenes\">\n";
    for (const GalleryScene& scene : shown.scenes) {
        html += "<article><h3>" + escaped(scene.name) + "</h3>\n";
        for (const GalleryPicture& picture : scene.pictures) {
            html += figure(picture, scene.name, device);
        }
        html += "</article>\n";
    }
    return html + "</div></section>\n";
}

} // namespace

std::string galleryPage(const std::vector<GalleryDevice>& devices) {
    std::vector<std::string> names;
    std::string sections;
    for (const GalleryDevice& device : devices) {
        names.push_back(device.device.name);
        sections += section(device);
    }
    return std::string("<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n") + galleryMark +
           "\n<meta name=\"viewport\" content=\"width=device-width\">\n<title>Truths &amp; Dares: the "
           "gallery</title>\n" +
           style + "</head>\n<body>\n<header><h1>Truths &amp; Dares</h1>\n<form>" + choices("Device", names) +
           choices("Appearance", {"light", "dark"}) + "<output></output></form></header>\n<main>\n" + sections +
           "</main>\n" + script + "</body>\n</html>\n";
}
