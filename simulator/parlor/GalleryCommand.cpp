#include "content/DropdownRows.h"
#include "simulator/parlor/Report.h"
#include "simulator/parlor/Shot.h"
#include "simulator/pictures/ContactSheet.h"
#include "simulator/pictures/GalleryFolder.h"
#include "simulator/pictures/GalleryPage.h"
#include "simulator/pictures/PictureFile.h"
#include "simulator/pictures/ScreenPicture.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iostream>

namespace {

constexpr const char* examples = "Examples:\n"
                                 "  parlor gallery -o out/gallery\n"
                                 "  parlor gallery -o out/gallery --device se --device 15max\n";

/// A list in scripts that the interface's own font does not have: that of the tree when the command is given there.
std::string scriptsList() {
    const std::string list = "flows/scripts/Family.json";
    std::error_code error;
    return std::filesystem::exists(list, error) ? list : inTree(list).string();
}

/// Which phones a gallery shows and where it goes.
struct GalleryOptions : BundleOptions {
    std::vector<std::string> devices; // empty: the usual one
    std::filesystem::path folder = "out/gallery";
    bool force = false; // also overwrites what is not its own
    ReportOptions report;
};

struct Scene {
    std::string name;
    Shot shot; // without device and appearance
};

/// All that a designer wants to have seen before the screen goes out.
std::vector<Scene> allScenes(const GalleryOptions& options) {
    Shot usual;
    static_cast<BundleOptions&>(usual) = options;
    std::vector<Scene> scenes;
    const auto add = [&](const std::string& name) -> Shot& { return scenes.emplace_back(Scene{name, usual}).shot; };
    for (const std::string& group : playerGroupTitles()) {
        Shot& shot = add(group);
        shot.group = group;
        if (options.content && group != groupFor(*options.content)) {
            shot.content.reset(); // it would be shown for each of them
        }
    }
    add("List of groups").openDropdown = true;
    add("Compact").style = "compact";
    Shot& compactList = add("Compact, list of groups");
    compactList.style = "compact";
    compactList.openDropdown = true;
    for (const std::string place : {"middle", "end"}) {
        add("Scrolled to the " + place).scroll = place;
    }
    for (const std::string size : {"xSmall", "xxxLarge", "accessibility1", "accessibility3"}) {
        add("Text size " + size).textSize = size;
    }
    add("Five scripts").content = scriptsList();
    Shot& rightToLeft = add("Right to left");
    rightToLeft.content = scriptsList();
    rightToLeft.rightToLeft = true;
    add("After a tap on a mode").tapFirst = true;
    return scenes;
}

/// Everything of one device in one appearance, which one process takes.
class Sheet {
public:
    Sheet(const std::vector<Scene>& scenes, const Device& device, bool dark) : m_device(device), m_dark(dark) {
        for (const Scene& scene : scenes) {
            Shot& shot = m_scenes.emplace_back(scene).shot;
            shot.device = device.name;
            shot.dark = dark;
        }
    }

    [[nodiscard]] const std::vector<Scene>& scenes() const { return m_scenes; }
    [[nodiscard]] std::string name() const { return fileOf("sheet"); }
    [[nodiscard]] GalleryPicture picture(const Scene& scene) const {
        const std::string file = fileOf(scene.name);
        return {file, appearance(), scene.shot.commandLine(file)};
    }
    [[nodiscard]] const std::string& deviceName() const { return m_device.name; }
    [[nodiscard]] std::string appearance() const { return m_dark ? "dark" : "light"; }

    [[nodiscard]] CommandResult take(const PreparedBundle& bundle, const std::filesystem::path& folder) const {
        ContactSheet sheet;
        for (const Scene& scene : m_scenes) {
            CommandResult result = takeScene(scene, bundle, folder, sheet);
            if (!result || !result.value().empty()) {
                return result;
            }
        }
        const std::optional<Failure> failure = savePicture(sheet.picture(), folder / name());
        return failure ? CommandResult(*failure) : Findings();
    }

private:
    [[nodiscard]] std::string fileOf(const std::string& what) const {
        return m_device.name + "-" + appearance() + "-" + fileNameOf(what) + ".png";
    }

    /// Takes the picture for the folder and, at one pixel a point, for the sheet.
    [[nodiscard]] CommandResult takeScene(const Scene& scene, PreparedBundle bundle,
                                          const std::filesystem::path& folder, ContactSheet& sheet) const {
        std::optional<Failure> failure = bundle.fitTo(scene.shot);
        if (failure) {
            return *failure;
        }
        Findings findings = playShot(scene.shot, bundle, [&](ConversationHost& host) {
            failure = savePicture(takePicture(host, PictureExtent::screen), folder / fileOf(scene.name));
            sheet.add(takePicture(host, PictureExtent::screen, 1), scene.name);
        });
        return failure ? CommandResult(*failure) : findings;
    }

    Device m_device;
    bool m_dark;
    std::vector<Scene> m_scenes;
};

Result<std::vector<Device>> devicesOf(const GalleryOptions& options) {
    std::vector<Device> devices;
    for (const std::string& name : options.devices.empty() ? std::vector<std::string>{"15"} : options.devices) {
        const Result<Device> device = deviceNamed(name);
        if (!device) {
            return device.failure();
        }
        const auto isSame = [&](const Device& known) { return known.name == device.value().name; };
        if (std::none_of(devices.begin(), devices.end(), isSame)) {
            devices.push_back(device.value());
        }
    }
    return devices;
}

/// The light sheet and the dark one of each device, one after the other.
std::vector<Sheet> sheetsOf(const std::vector<Device>& devices, const std::vector<Scene>& scenes) {
    std::vector<Sheet> sheets;
    for (const Device& device : devices) {
        for (const bool dark : {false, true}) {
            sheets.emplace_back(scenes, device, dark);
        }
    }
    return sheets;
}

std::vector<std::string> filesOf(const std::vector<Sheet>& sheets) {
    std::vector<std::string> files;
    for (const Sheet& sheet : sheets) {
        files.push_back(sheet.name());
        for (const Scene& scene : sheet.scenes()) {
            files.push_back(sheet.picture(scene).file);
        }
    }
    return files;
}

std::string pageFor(const std::vector<Device>& devices, const std::vector<Sheet>& sheets) {
    std::vector<GalleryDevice> shown;
    for (std::size_t i = 0; i < devices.size(); ++i) {
        const Sheet& light = sheets[2 * i];
        const Sheet& dark = sheets[2 * i + 1];
        GalleryDevice& device = shown.emplace_back(GalleryDevice{devices[i], {}, {}});
        for (const Sheet& sheet : {light, dark}) {
            device.sheets.push_back({sheet.name(), sheet.appearance(), ""});
        }
        for (std::size_t j = 0; j < light.scenes().size(); ++j) {
            device.scenes.push_back(
                {light.scenes()[j].name, {light.picture(light.scenes()[j]), dark.picture(dark.scenes()[j])}});
        }
    }
    return galleryPage(shown);
}

/// Each sheet takes a process of its own.
CommandResult takeSheets(const std::vector<Sheet>& sheets, const PreparedBundle& bundle,
                         const std::filesystem::path& folder) {
    std::vector<OwnProcesses::Work> works;
    for (const Sheet& sheet : sheets) {
        works.emplace_back([&] { return resultText(sheet.take(bundle, folder)); });
    }
    Findings findings;
    for (const OwnOutcome& outcome : OwnProcesses(works).finish()) {
        const CommandResult result = resultIn(outcome);
        if (!result) {
            return result;
        }
        findings.insert(findings.end(), result.value().begin(), result.value().end());
    }
    tell(findings);
    return findings;
}

CommandResult takeAll(const GalleryOptions& options, const std::vector<Device>& devices,
                      const std::vector<Sheet>& sheets) {
    GalleryFolder folder(options.folder, options.force ? Overwriting::everything : Overwriting::own);
    if (const std::optional<Failure> refusal = folder.claim(filesOf(sheets))) {
        return *refusal;
    }
    std::vector<std::string> names;
    for (const Device& device : devices) {
        names.push_back(device.name);
    }
    return withBundle(options, names, [&](const PreparedBundle& bundle) -> CommandResult {
        CommandResult result = takeSheets(sheets, bundle, options.folder);
        if (!result || !result.value().empty()) {
            folder.withdraw();
            return result;
        }
        if (const std::optional<Failure> failure = folder.savePage(pageFor(devices, sheets))) {
            return *failure;
        }
        std::cerr << "parlor: gallery " << (options.folder / "index.html").string() << '\n';
        return result;
    });
}

CommandResult makeGallery(const GalleryOptions& options) {
    const Result<std::vector<Device>> devices = devicesOf(options);
    if (!devices) {
        return devices.failure();
    }
    const std::vector<Sheet> sheets = sheetsOf(devices.value(), allScenes(options));
    return reporting({"gallery", {}, {}}, options.report,
                     [&](Report&) { return takeAll(options, devices.value(), sheets); });
}

} // namespace

ParlorCommand addGalleryCommand(CLI::App& app) {
    const auto gallery = std::make_shared<GalleryOptions>();
    CLI::App* line = app.add_subcommand("gallery", "Takes pictures of everything, with a page to look through");
    line->add_option("-o,--output", gallery->folder, "Where the pictures go (default: out/gallery)")
        ->check(notEmpty)
        ->option_text("DIR");
    addBundleOptions(*line, *gallery, ContentWord::alone);
    addReportOptions(*line, gallery->report);
    line->add_option("--device", gallery->devices, "As for run; may be given several times (default: 15)")
        ->type_name("NAME");
    line->add_flag("--force", gallery->force, "Also overwrites files that are not of an earlier gallery");
    line->footer(examples);
    return {line, [gallery] { return makeGallery(*gallery); }};
}
