#include "platform/interface/CatalogSets.h"

#include "platform/foundation/FileReading.h"
#include "platform/interface/ElementReader.h"
#include "platform/uikit/window/UIScreen.h"

#include <algorithm>
#include <charconv>
#include <map>

namespace {

/// Editors write a component as text in one of three notations: "0.486" from 0 to 1, "0xE0" and "174" from 0 to 255.
std::optional<double> componentFrom(std::string_view text) {
    if (text.substr(0, 2) == "0x" || text.substr(0, 2) == "0X") {
        int byte = 0;
        const char* end = text.data() + text.size();
        const auto read = std::from_chars(text.data() + 2, end, byte, 16);
        return read.ec == std::errc() && read.ptr == end ? std::optional(byte / 255.0) : std::nullopt;
    }
    const std::optional<double> number = parseNumber(text);
    return number && text.find('.') == std::string_view::npos ? std::optional(*number / 255) : number;
}

/// Reads one colour set; remembers that something was wrong.
class ColorSetReader {
public:
    ColorSetReader(const CatalogContents& contents, Findings& findings) : m_contents(contents), m_findings(findings) {}

    std::shared_ptr<UIColor> read() {
        const auto colors = m_contents.root().find("colors");
        if (!colors || !colors->is(JSONKind::array)) {
            fault(m_contents.root(), "the list \"colors\" is missing");
            return nullptr;
        }
        for (const JSONValue entry : colors->elements()) {
            take(entry);
        }
        if (m_sound && !m_light && !m_dark) {
            fault(*colors, "no colour for this device");
        }
        if (!m_sound) {
            return nullptr; // something was wrong, or neither colour is there
        }
        const RGBA light = m_light ? *m_light : *m_dark;
        return UIColor::dynamicColor(light, m_dark.value_or(light));
    }

private:
    void fault(JSONValue at, const std::string& message) {
        m_sound = false;
        m_findings.push_back(m_contents.finding(at, message));
    }

    void take(JSONValue entry) {
        const std::string_view idiom = textAt(entry, "idiom");
        const auto color = entry.find("color");
        if (!color || (idiom != "universal" && idiom != "iphone")) {
            return; // an empty slot, or one for another device
        }
        bool dark = false;
        if (const auto appearances = entry.find("appearances")) {
            for (const JSONValue appearance : appearances->elements()) {
                if (textAt(appearance, "appearance") != "luminosity") {
                    return; // such as high contrast
                }
                dark = dark || textAt(appearance, "value") == "dark";
            }
        }
        std::optional<RGBA>& place = dark ? m_dark : m_light;
        if (!place || idiom == "iphone") {
            place = colorOf(*color);
        }
    }

    RGBA colorOf(JSONValue color) {
        const auto components = color.find("components");
        if (!components || !components->is(JSONKind::object)) {
            fault(color, "the colour has no components");
            return {};
        }
        return componentsOf(*components);
    }

    /// Wide colours count as if they were of the usual space.
    RGBA componentsOf(JSONValue components) {
        const double alpha = components.find("alpha") ? component(components, "alpha") : 1;
        if (components.find("white")) {
            const double white = component(components, "white");
            return {white, white, white, alpha};
        }
        return {component(components, "red"), component(components, "green"), component(components, "blue"), alpha};
    }

    double component(JSONValue components, std::string_view key) {
        const auto value = components.find(key);
        const auto text = value ? value->string() : std::nullopt;
        std::optional<double> number = value ? value->number() : std::nullopt;
        if (text) {
            number = key == "alpha" ? parseNumber(*text) : componentFrom(*text);
        }
        if (!number) {
            fault(value.value_or(components), "the component \"" + std::string(key) + "\" is no number");
        }
        return std::clamp(number.value_or(0), 0.0, 1.0);
    }

    const CatalogContents& m_contents;
    Findings& m_findings;
    std::optional<RGBA> m_light;
    std::optional<RGBA> m_dark;
    bool m_sound = true;
};

int scaleOf(JSONValue entry) {
    const std::string_view scale = textAt(entry, "scale");
    return scale == "3x" ? 3 : scale == "2x" ? 2 : 1;
}

/// What is drawn on a phone, whatever the appearance: files that entries name for it rather than those for any device,
/// and among them those for the direction of its language. Slots may be empty.
std::vector<ImageFile> filesFor(JSONValue images, const std::filesystem::path& folder) {
    const bool isRightToLeft =
        UIScreen::mainScreen().userInterfaceLayoutDirection() == UIUserInterfaceLayoutDirection::rightToLeft;
    std::map<int, std::vector<ImageFile>> byFitness;
    for (const JSONValue entry : images.elements()) {
        const std::string_view idiom = textAt(entry, "idiom");
        const std::string_view name = textAt(entry, "filename");
        if (!name.empty() && !entry.find("appearances") && (idiom == "iphone" || idiom == "universal")) {
            const std::string_view direction = textAt(entry, "language-direction");
            const bool fits = direction == (isRightToLeft ? "right-to-left" : "left-to-right");
            std::vector<ImageFile>& files = byFitness[(idiom == "iphone" ? 2 : 0) + (fits ? 1 : 0)];
            const std::vector<ImageFile> drawn = imageFilesOf(folder, name, scaleOf(entry));
            files.insert(files.end(), drawn.begin(), drawn.end());
        }
    }
    return byFitness.empty() ? std::vector<ImageFile>() : byFitness.rbegin()->second;
}

std::filesystem::path& renderedCatalog() {
    static std::filesystem::path catalog;
    return catalog;
}

/// The folder of the same set in the catalogue of rendered pictures.
std::filesystem::path renderedFolderOf(const std::filesystem::path& folder) {
    std::filesystem::path inside;
    for (std::filesystem::path at = folder; at.has_filename() && at.extension() != ".xcassets"; at = at.parent_path()) {
        inside = at.filename() / inside;
    }
    return renderedCatalog() / inside;
}

} // namespace

void setRenderedCatalog(std::filesystem::path catalog) {
    renderedCatalog() = std::move(catalog);
}

std::optional<CatalogContents> CatalogContents::read(const std::filesystem::path& folder, Findings& findings) {
    const std::string path = (folder / "Contents.json").string();
    Result<std::string> text = readWholeFile(path);
    Result<JSONDocument> document = text ? JSONDocument::parse(std::move(text).value()) : text.failure();
    if (!document) {
        findings.push_back(document.failure().in(path, Severity::warning));
        return std::nullopt;
    }
    if (!document.value().root().is(JSONKind::object)) {
        findings.push_back({Severity::warning, path, TextPlace{}, "an object is expected"});
        return std::nullopt;
    }
    return CatalogContents(path, std::move(document).value());
}

Finding CatalogContents::finding(JSONValue at, const std::string& message) const {
    return {Severity::warning, m_path, m_document.placeOf(at), message};
}

Finding CatalogContents::findingOfKey(const JSONValue::Member& member, const std::string& message) const {
    return {Severity::warning, m_path, m_document.placeOfKey(member), message};
}

std::string_view textAt(JSONValue value, std::string_view key) {
    const auto found = value.find(key);
    return found ? found->string().value_or(std::string_view()) : std::string_view();
}

std::shared_ptr<UIColor> readColorSet(const std::filesystem::path& folder, Findings& findings) {
    const std::optional<CatalogContents> contents = CatalogContents::read(folder, findings);
    return contents ? ColorSetReader(*contents, findings).read() : nullptr;
}

std::vector<ImageFile> imageFilesOf(const std::filesystem::path& folder, std::string_view fileName, int scale) {
    const std::filesystem::path path = folder / std::filesystem::path(fileName).filename();
    if (path.extension() != ".svg") {
        return {{path.string(), scale}};
    }
    std::error_code error;
    const std::filesystem::path besideIt = folder / path.stem();
    const bool isBesideIt = renderedCatalog().empty() || std::filesystem::exists(besideIt.string() + ".png", error);
    const std::string stem = (isBesideIt ? besideIt : renderedFolderOf(folder) / path.stem()).string();
    return {{stem + ".png", 1}, {stem + "@2x.png", 2}, {stem + "@3x.png", 3}};
}

std::shared_ptr<UIImage> readImageSet(const std::filesystem::path& folder, Findings& findings) {
    const std::optional<CatalogContents> contents = CatalogContents::read(folder, findings);
    if (!contents) {
        return nullptr;
    }
    const auto images = contents->root().find("images");
    if (!images || !images->is(JSONKind::array)) {
        findings.push_back(contents->finding(contents->root(), "the list \"images\" is missing"));
        return nullptr;
    }
    std::vector<ImageFile> files = filesFor(*images, folder);
    return files.empty() ? nullptr : std::make_shared<UIImage>(folder.stem().string(), std::move(files));
}
