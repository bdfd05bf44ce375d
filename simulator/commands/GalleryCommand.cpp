#include "simulator/commands/GalleryCommand.h"

#include "content/DropdownRows.h"
#include "simulator/commands/ScreenScript.h"
#include "simulator/commands/Stage.h"
#include "simulator/flows/FlowPlayer.h"
#include "simulator/pictures/ContactSheet.h"
#include "simulator/pictures/GalleryFolder.h"
#include "simulator/pictures/PictureComparison.h"
#include "simulator/pictures/ScreenPicture.h"

#include <iostream>

namespace {

constexpr const char* sheetName = "gallery.png";

ExitStatus complain(const Failure& failure) {
    std::cerr << "parlor: " << failure.what << '\n';
    return exitUsage;
}

/// Takes the picture for the folder and, at one pixel a point, for the sheet. The outcome: whether it could be written.
Outcome addPicture(FlowPlayer& player, GalleryFolder& folder, ContactSheet& sheet, const std::string& what,
                   const std::string& appearance) {
    ConversationHost& host = player.host();
    const std::string name = host.device().name + "-" + appearance + "-" + fileNameOf(what) + ".png";
    const Outcome failure = folder.save(takePicture(host, PictureExtent::screen), name);
    if (!failure) {
        const std::string caption = what + ", " + appearance + ", " + host.device().name;
        sheet.add(takePicture(host, PictureExtent::screen, 1), caption);
        folder.show(name, caption);
    }
    return failure;
}

/// One visit to the conversation; each state is seen light and dark.
ScreenScript tour(GalleryFolder& folder, ContactSheet& light, ContactSheet& dark, Outcome& writing) {
    ScreenScript script;
    const auto show = [&](const std::string& what) {
        for (const std::string appearance : {"light", "dark"}) {
            script.add("- setAppearance: " + appearance + "\n");
            ContactSheet& sheet = appearance == "dark" ? dark : light;
            script.addStep("picture", [&folder, &sheet, &writing, what, appearance](FlowPlayer& player) -> Outcome {
                writing = writing ? writing : addPicture(player, folder, sheet, what, appearance);
                return std::nullopt;
            });
        }
    };
    for (const std::string& group : playerGroupTitles()) {
        script.choose(group);
        show(group);
    }
    script.openDropdown();
    show("Dropdown open");
    return script;
}

/// Adds the rows of one device.
ExitStatus visit(const Stage& stage, GalleryFolder& folder, std::vector<ContactSheet>& rows) {
    ContactSheet light;
    ContactSheet dark;
    Outcome writing; // the first picture that could not be written
    const ScreenScript script = tour(folder, light, dark, writing);
    const FlowResult result = FlowPlayer(script.flow(), setStage(stage, script.flow()), {}).play();
    if (writing) {
        return complain(*writing);
    }
    if (!result.failures.empty()) { // the others follow from it
        std::cerr << "parlor: " << result.failures.front().what << '\n';
        return exitFailed;
    }
    rows.push_back(std::move(light));
    rows.push_back(std::move(dark));
    return exitFine;
}

} // namespace

ExitStatus makeGallery(RunOptions options, const GalleryOptions& gallery) {
    if (gallery.folder.empty()) {
        return complain({"the gallery needs a folder"});
    }
    GalleryFolder folder(gallery.folder, gallery.force ? Overwriting::everything : Overwriting::own);
    for (const char* name : {sheetName, "index.html"}) {
        if (const Outcome refusal = folder.refusal(name)) {
            return complain(*refusal);
        }
    }
    std::vector<ContactSheet> rows;
    ExitStatus status = exitFine;
    const std::vector<std::string> usual{"15"};
    for (const std::string& device : gallery.devices.empty() ? usual : gallery.devices) {
        options.device = device;
        const std::optional<Stage> stage = prepareStage(options, status);
        if (!stage) {
            return status;
        }
        if (const ExitStatus seen = visit(*stage, folder, rows); seen != exitFine) {
            return seen;
        }
    }
    Outcome failure = folder.save(ContactSheet::stack(rows), sheetName);
    failure = failure ? failure : folder.savePage();
    if (failure) {
        return complain(*failure);
    }
    std::cerr << "parlor: gallery " << (gallery.folder / "index.html").string() << ", all on one sheet "
              << (gallery.folder / sheetName).string() << '\n';
    return status;
}
