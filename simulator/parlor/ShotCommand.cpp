#include "platform/graphics/PNG.h"
#include "simulator/parlor/Shot.h"
#include "simulator/pictures/PictureFile.h"
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

/// A mistyped name must not cost somebody a file.
bool isForeign(const std::string& file) {
    std::error_code error;
    return std::filesystem::is_regular_file(file, error) && !readPNGSize(file); // a pipe costs nobody anything
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

CommandResult shoot(const Shot& shot, const std::string& file, const PreparedBundle& bundle) {
    std::optional<Bitmap> picture;
    Findings failures;
    {
        std::optional<OutputAside> aside;
        if (file == "-") {
            aside.emplace();
        }
        failures = playShot(shot, bundle, [&](ConversationHost& host) {
            picture = takePicture(host, shot.bare ? PictureExtent::extension : PictureExtent::screen);
        });
    }
    for (const Finding& failure : failures) {
        std::cerr << "parlor: " << failure.what << '\n';
    }
    const std::optional<Failure> failure = deliver(*picture, file);
    return failure ? CommandResult(*failure) : failures;
}

CommandResult takeShot(const Shot& shot, const std::string& file) {
    if (isForeign(file)) {
        return Failure{file + " exists and is no PNG picture; it is left alone"};
    }
    return withBundle(shot, {deviceNameFor(shot, Flow{})},
                      [&](const PreparedBundle& bundle) { return shoot(shot, file, bundle); });
}

/// Empty when the text says how far to scroll, else what to say.
std::string scrollDistance(const std::string& text) {
    double number = 0;
    const bool isWord = text == "middle" || text == "end";
    const bool isNumber = CLI::detail::lexical_cast(text, number) && std::isfinite(number);
    return isWord || isNumber ? "" : text + " is no distance";
}

} // namespace

ParlorCommand addShotCommand(CLI::App& app) {
    const auto shot = std::make_shared<Shot>();
    const auto file = std::make_shared<std::string>();
    CLI::App* line = app.add_subcommand("shot", "Takes a picture of the screen");
    line->add_option("-o,--output", *file, "The PNG file; - for standard output")
        ->check(notEmpty)
        ->option_text("FILE")
        ->required();
    addBundleOptions(*line, *shot);
    addDeviceOption(*line, *shot);
    addGroupOption(*line, *shot);
    line->add_flag("--dark", shot->dark, "In the dark appearance");
    line->add_option("--style", shot->style, "compact or expanded (default)")
        ->check(CLI::IsMember({"compact", "expanded"}))
        ->option_text("STYLE");
    line->add_flag("--open-dropdown", shot->openDropdown, "With the list of groups open");
    line->add_option("--scroll", shot->scroll, "How far the modes are scrolled: points, middle or end")
        ->check(scrollDistance)
        ->option_text("POINTS");
    line->add_flag("--tap-first", shot->tapFirst, "After a tap on the first mode in view: its link is handed over");
    line->add_flag("--bare", shot->bare, "Without the conversation around the extension");
    line->footer(examples);
    return {line, [shot, file] { return takeShot(*shot, *file == "/dev/stdout" ? "-" : *file); }};
}
