#include "simulator/commands/ShotCommand.h"

#include "game/CategoriesVC.h"
#include "platform/graphics/PNG.h"
#include "simulator/commands/OutputAside.h"
#include "simulator/commands/ScreenScript.h"
#include "simulator/commands/Stage.h"
#include "simulator/flows/FlowPlayer.h"
#include "simulator/pictures/PictureComparison.h"
#include "simulator/pictures/ScreenPicture.h"

#include <iostream>
#include <optional>

namespace {

std::string groupToShow(const RunOptions& options, const ShotOptions& shot) {
    return shot.group.value_or(groupFor(options.content.value_or("")));
}

/// A mistyped name must not cost somebody a file.
bool isForeign(const std::string& file) {
    std::error_code error;
    return file != "-" && std::filesystem::exists(file, error) && !readPNGSize(file);
}

Outcome scrollModes(FlowPlayer& player, double distance) {
    for (const auto& child : player.host().controller()->childViewControllers()) {
        if (const auto* screen = dynamic_cast<const CategoriesVC*>(child.get())) {
            const CGPoint start = screen->tableView->contentOffset();
            screen->tableView->setContentOffset({start.x, start.y + distance});
        }
    }
    return std::nullopt;
}

ScreenScript scriptOf(const RunOptions& options, const ShotOptions& shot, std::optional<Bitmap>& picture) {
    ScreenScript script;
    script.choose(groupToShow(options, shot));
    if (shot.dark) {
        script.add("- setAppearance: dark\n");
    }
    script.add("- setStyle: " + shot.style + "\n");
    script.addStep("scroll", [distance = shot.scroll](FlowPlayer& player) { return scrollModes(player, distance); });
    if (shot.openDropdown) {
        script.openDropdown();
    }
    script.addStep("picture", [&picture, bare = shot.bare](FlowPlayer& player) -> Outcome {
        picture = takePicture(player.host(), bare ? PictureExtent::extension : PictureExtent::screen);
        return std::nullopt;
    });
    return script;
}

ExitStatus deliver(const Bitmap& picture, const std::string& file, ExitStatus status) {
    if (file == "-") {
        const std::vector<std::uint8_t> bytes = encodePNG(picture);
        std::cout.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        return std::cout.flush() ? status : exitUsage;
    }
    if (const std::optional<Failure> failure = savePicture(picture, file)) {
        std::cerr << "parlor: " << failure->what << '\n';
        return exitUsage;
    }
    std::cerr << "parlor: picture " << file << '\n';
    return status;
}

} // namespace

ExitStatus takeShot(const RunOptions& options, const ShotOptions& shot) {
    if (isForeign(shot.file)) {
        std::cerr << "parlor: " << shot.file << " exists and is no PNG picture; it is left alone\n";
        return exitUsage;
    }
    ExitStatus status = exitUsage;
    const std::optional<Stage> stage = prepareStage(options, status);
    if (!stage) {
        return status;
    }
    std::optional<Bitmap> picture;
    const ScreenScript script = scriptOf(options, shot, picture);
    Findings failures;
    {
        std::optional<OutputAside> aside;
        if (shot.file == "-") {
            aside.emplace();
        }
        failures = FlowPlayer(script.flow(), setStage(*stage, script.flow()), {}).play().failures;
    }
    for (const Finding& failure : failures) {
        std::cerr << "parlor: " << failure.what << '\n';
    }
    return deliver(*picture, shot.file, failures.empty() ? status : exitFailed);
}
