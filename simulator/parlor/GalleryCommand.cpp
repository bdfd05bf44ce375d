#include "content/DropdownRows.h"
#include "simulator/flows/FlowPlayer.h"
#include "simulator/parlor/FlowComposer.h"
#include "simulator/parlor/PreparedBundle.h"
#include "simulator/pictures/ContactSheet.h"
#include "simulator/pictures/GalleryFolder.h"
#include "simulator/pictures/ScreenPicture.h"

#include <CLI/CLI.hpp>

#include <iostream>

namespace {

constexpr const char* sheetName = "gallery.png";

constexpr const char* examples = "Examples:\n"
                                 "  parlor gallery -o out/gallery\n"
                                 "  parlor gallery -o out/gallery --device se --device 15max\n";

/// Which phones a gallery shows and where it goes.
struct GalleryOptions : BundleOptions {
    std::vector<std::string> devices; // empty: the usual one
    std::filesystem::path folder;
    bool force = false; // also overwrites what is not its own
};

/// Takes the pictures of one device: of each group and of the open list of groups, light and dark.
class Visit {
public:
    Visit(GalleryFolder& folder, Device device) : m_folder(folder), m_device(std::move(device)) {}

    /// What failed on the way, if anything did; a failure when a picture could not be written.
    CommandResult play(const PreparedBundle& bundle) {
        FlowComposer flow;
        for (const std::string& group : playerGroupTitles()) {
            flow.choose(group);
            show(flow, group);
        }
        flow.openDropdown();
        show(flow, "Dropdown open");
        bundle.openFor(flow.flow());
        const Findings failures = FlowPlayer(flow.flow(), m_device).play().failures;
        if (m_unwritten) {
            return *m_unwritten;
        }
        if (!failures.empty()) { // the others follow from the first
            std::cerr << "parlor: " << failures.front().what << '\n';
        }
        return failures;
    }
    /// Hands over one row of the contact sheet for each appearance.
    void moveRowsTo(std::vector<ContactSheet>& rows) {
        rows.push_back(std::move(m_light));
        rows.push_back(std::move(m_dark));
    }

private:
    void show(FlowComposer& flow, const std::string& what) {
        for (const std::string appearance : {"light", "dark"}) {
            flow.add("- setAppearance: " + appearance + "\n");
            flow.addStep("picture", [this, what, appearance](FlowPlayer& player) {
                if (!m_unwritten) {
                    m_unwritten = addPicture(player.host(), what, appearance);
                }
                return std::nullopt;
            });
        }
    }

    /// Takes the picture for the folder and, at one pixel a point, for the sheet.
    std::optional<Failure> addPicture(ConversationHost& host, const std::string& what, const std::string& appearance) {
        const std::string name = m_device.name + "-" + appearance + "-" + fileNameOf(what) + ".png";
        std::optional<Failure> failure = m_folder.save(takePicture(host, PictureExtent::screen), name);
        if (!failure) {
            const std::string caption = what + ", " + appearance + ", " + m_device.name;
            ContactSheet& sheet = appearance == "dark" ? m_dark : m_light;
            sheet.add(takePicture(host, PictureExtent::screen, 1), caption);
            m_folder.show(name, caption);
        }
        return failure;
    }

    GalleryFolder& m_folder;
    Device m_device;
    ContactSheet m_light;
    ContactSheet m_dark;
    std::optional<Failure> m_unwritten; // the first picture that could not be written
};

Result<std::vector<Device>> devicesOf(const GalleryOptions& options) {
    std::vector<Device> devices;
    for (const std::string& name : options.devices.empty() ? std::vector<std::string>{"15"} : options.devices) {
        const Result<Device> device = deviceNamed(name);
        if (!device) {
            return device.failure();
        }
        devices.push_back(device.value());
        devices.back().textSize = textSizeNamed(options.textSize);
    }
    return devices;
}

CommandResult fillFolder(GalleryFolder& folder, const std::vector<Device>& devices, const PreparedBundle& bundle) {
    std::vector<ContactSheet> rows;
    for (const Device& device : devices) {
        Visit visit(folder, device);
        CommandResult seen = visit.play(bundle);
        if (!seen || !seen.value().empty()) {
            return seen;
        }
        visit.moveRowsTo(rows);
    }
    std::optional<Failure> failure = folder.save(ContactSheet::stack(rows), sheetName);
    failure = failure ? failure : folder.savePage();
    return failure ? CommandResult(*failure) : Findings();
}

CommandResult makeGallery(const GalleryOptions& options) {
    if (options.folder.empty()) {
        return Failure{"the gallery needs a folder"};
    }
    const Result<std::vector<Device>> devices = devicesOf(options);
    if (!devices) {
        return devices.failure();
    }
    GalleryFolder folder(options.folder, options.force ? Overwriting::everything : Overwriting::own);
    for (const char* name : {sheetName, "index.html"}) {
        if (const std::optional<Failure> refusal = folder.refusal(name)) {
            return *refusal;
        }
    }
    return withBundle(options, [&](const PreparedBundle& bundle) {
        CommandResult result = fillFolder(folder, devices.value(), bundle);
        if (result && result.value().empty()) {
            std::cerr << "parlor: gallery " << (options.folder / "index.html").string() << ", all on one sheet "
                      << (options.folder / sheetName).string() << '\n';
        }
        return result;
    });
}

} // namespace

ParlorCommand addGalleryCommand(CLI::App& app) {
    const auto gallery = std::make_shared<GalleryOptions>();
    CLI::App* line = app.add_subcommand("gallery", "Takes pictures of everything, with a page and a contact sheet");
    line->add_option("-o,--output", gallery->folder, "Where the pictures go")->type_name("DIR")->required();
    addBundleOptions(*line, *gallery);
    line->add_option("--device", gallery->devices, "As for run; may be given several times (default: 15)")
        ->type_name("NAME");
    line->add_flag("--force", gallery->force, "Also overwrites files that are not of an earlier gallery");
    line->footer(examples);
    return {line, [gallery] { return makeGallery(*gallery); }};
}
