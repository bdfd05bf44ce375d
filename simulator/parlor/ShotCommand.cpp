#include "content/DropdownRows.h"
#include "game/CategoriesVC.h"
#include "platform/graphics/PNG.h"
#include "simulator/conversation/ScreenNarrator.h"
#include "simulator/flows/FlowPlayer.h"
#include "simulator/parlor/FlowComposer.h"
#include "simulator/parlor/PreparedBundle.h"
#include "simulator/pictures/ScreenPicture.h"

#include <CLI/CLI.hpp>

#include <cmath>
#include <iostream>

namespace {

constexpr const char* examples = "Examples:\n"
                                 "  parlor shot -o screen.png\n"
                                 "  parlor shot --group Family --dark --device se -o family.png\n"
                                 "  parlor shot --content MyList.json --open-dropdown --bare -o - | display\n"
                                 "\n"
                                 "A file that exists and is no PNG picture is left alone.\n";

/// What one picture is to show.
struct ShotOptions : BundleOptions {
    std::optional<std::string> group; // absent: the one the content file is named after, or the first
    bool dark = false;
    std::string style = "expanded";
    bool openDropdown = false;
    double scroll = 0; // points, of the list of modes
    bool bare = false;
    std::string file; // "-": standard output
};

/// A mistyped name must not cost somebody a file.
bool isForeign(const std::string& file) {
    std::error_code error;
    return file != "-" && std::filesystem::exists(file, error) && !readPNGSize(file);
}

void scrollModes(const FlowPlayer& player, double distance) {
    if (const CategoriesVC* screen = shownCategoryScreen(player.host())) {
        const CGPoint start = screen->tableView->contentOffset();
        screen->tableView->setContentOffset({start.x, start.y + distance});
    }
}

FlowComposer flowFor(const ShotOptions& shot, std::optional<Bitmap>& picture) {
    FlowComposer flow;
    flow.choose(shot.group.value_or(groupFor(shot.content.value_or(""))));
    if (shot.dark) {
        flow.add("- setAppearance: dark\n");
    }
    flow.add("- setStyle: " + shot.style + "\n");
    flow.addStep("scroll", [distance = shot.scroll](FlowPlayer& player) {
        scrollModes(player, distance);
        return std::nullopt;
    });
    if (shot.openDropdown) {
        flow.openDropdown();
    }
    flow.addStep("picture", [&picture, bare = shot.bare](FlowPlayer& player) {
        picture = takePicture(player.host(), bare ? PictureExtent::extension : PictureExtent::screen);
        return std::nullopt;
    });
    return flow;
}

std::optional<Failure> writeToStandardOutput(const Bitmap& picture) {
    const std::vector<std::uint8_t> bytes = encodePNG(picture);
    std::cout.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    return std::cout.flush() ? std::nullopt : std::optional(Failure{"standard output cannot be written"});
}

std::optional<Failure> deliver(const Bitmap& picture, const std::string& file) {
    if (file == "-") {
        return writeToStandardOutput(picture);
    }
    std::optional<Failure> failure = savePicture(picture, file);
    if (!failure) {
        std::cerr << "parlor: picture " << file << '\n';
    }
    return failure;
}

CommandResult shoot(const ShotOptions& shot, const PreparedBundle& bundle) {
    std::optional<Bitmap> picture;
    const FlowComposer composed = flowFor(shot, picture);
    const Flow& flow = composed.flow();
    Findings failures;
    {
        std::optional<OutputAside> aside;
        if (shot.file == "-") {
            aside.emplace();
        }
        bundle.openFor(flow);
        failures = FlowPlayer(flow, bundle.deviceFor(flow)).play().failures;
    }
    for (const Finding& failure : failures) {
        std::cerr << "parlor: " << failure.what << '\n';
    }
    const std::optional<Failure> failure = deliver(*picture, shot.file);
    return failure ? CommandResult(*failure) : failures;
}

CommandResult takeShot(const ShotOptions& shot) {
    if (isForeign(shot.file)) {
        return Failure{shot.file + " exists and is no PNG picture; it is left alone"};
    }
    return withBundle(shot, [&](const PreparedBundle& bundle) { return shoot(shot, bundle); });
}

/// Empty when the text is a finite number, else what to say.
std::string finiteNumber(const std::string& text) {
    double number = 0;
    return CLI::detail::lexical_cast(text, number) && std::isfinite(number) ? "" : text + " is no distance";
}

} // namespace

ParlorCommand addShotCommand(CLI::App& app) {
    const auto shot = std::make_shared<ShotOptions>();
    CLI::App* line = app.add_subcommand("shot", "Takes a picture of the screen");
    line->add_option("-o,--output", shot->file, "The PNG file; - for standard output")->type_name("FILE")->required();
    addBundleOptions(*line, *shot);
    addDeviceOption(*line, *shot);
    line->add_option("--group", shot->group, "Adult (18+), Friends, Couple or Family")
        ->check(CLI::IsMember(playerGroupTitles()))
        ->option_text("NAME");
    line->add_flag("--dark", shot->dark, "In the dark appearance");
    line->add_option("--style", shot->style, "compact or expanded (default)")
        ->check(CLI::IsMember({"compact", "expanded"}))
        ->option_text("STYLE");
    line->add_flag("--open-dropdown", shot->openDropdown, "With the list of groups open");
    line->add_option("--scroll", shot->scroll, "How far the modes are scrolled")
        ->check(finiteNumber)
        ->type_name("POINTS");
    line->add_flag("--bare", shot->bare, "Without the conversation around the extension");
    line->footer(examples);
    return {line, [shot] { return takeShot(*shot); }};
}
