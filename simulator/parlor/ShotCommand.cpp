#include "platform/graphics/PNG.h"
#include "simulator/parlor/Report.h"
#include "simulator/parlor/Shot.h"
#include "simulator/pictures/PictureFile.h"
#include "simulator/pictures/ScreenPicture.h"

#include <CLI/CLI.hpp>

#include <cmath>
#include <iostream>

namespace {

constexpr const char* examples = "Examples:\n"
                                 "  parlor shot my-list.json -o my-list.png\n"
                                 "  parlor shot --group Family --dark --device se -o family.png\n"
                                 "  parlor shot MyList.json --open-dropdown --bare -o - | display\n"
                                 "\n"
                                 "A file that exists and is no PNG picture is left alone.\n";

struct ShotOptions : Shot {
    std::string file = "out/screen.png"; // "-": standard output
    ReportOptions report;
};

/// `output` is that of the picture, or null.
std::optional<Failure> deliver(const Bitmap& picture, const std::string& file, const OutputAside* output) {
    if (output != nullptr) {
        const std::vector<std::uint8_t> bytes = encodePNG(picture);
        return output->write({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    }
    std::optional<Failure> failure = savePicture(picture, file);
    if (!failure) {
        std::cerr << "parlor: picture " << file << '\n';
    }
    return failure;
}

CommandResult shoot(const ShotOptions& options, const PreparedBundle& bundle) {
    std::optional<OutputAside> aside;
    if (options.file == "-") {
        aside.emplace();
    }
    std::optional<Bitmap> picture;
    Findings failures = playShot(options, bundle, [&](ConversationHost& host) {
        picture = takePicture(host, options.bare ? PictureExtent::extension : PictureExtent::screen);
    });
    tell(failures);
    const std::optional<Failure> failure = deliver(*picture, options.file, aside ? &*aside : nullptr);
    return failure ? CommandResult(*failure) : failures;
}

CommandResult takeShot(ShotOptions options) {
    options.file = options.file == "/dev/stdout" ? "-" : options.file;
    if (options.file == "-" && options.report.file == "-") {
        return Failure{"standard output can take the picture or the report, not both"};
    }
    if (const std::optional<Failure> refusal = refusalOfPicture(options.file)) {
        return *refusal;
    }
    return reporting({"shot", {}, {}}, options.report, [&](Report&) {
        return withBundle(options, {deviceNameFor(options, Flow{})},
                          [&](const PreparedBundle& bundle) { return shoot(options, bundle); });
    });
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
    const auto shot = std::make_shared<ShotOptions>();
    CLI::App* line = app.add_subcommand("shot", "Takes a picture of the screen");
    line->add_option("-o,--output", shot->file, "The PNG file (default: out/screen.png); - for standard output")
        ->check(notEmpty)
        ->option_text("FILE");
    addBundleOptions(*line, *shot, ContentWord::alone);
    addDeviceOption(*line, *shot);
    addGroupOption(*line, *shot);
    addReportOptions(*line, shot->report);
    line->add_flag("--dark", shot->dark, "In the dark appearance");
    line->add_option("--style", shot->style, "compact or expanded (default)")
        ->check(oneOf({"compact", "expanded"}))
        ->option_text("STYLE");
    line->add_flag("--open-dropdown", shot->openDropdown, "With the list of groups open");
    line->add_option("--scroll", shot->scroll, "How far the modes are scrolled: points, middle or end")
        ->check(scrollDistance)
        ->option_text("POINTS");
    line->add_flag("--tap-first", shot->tapFirst, "After a tap on the first mode in view: its link is handed over");
    line->add_flag("--bare", shot->bare, "Without the conversation around the extension");
    line->footer(examples);
    return {line, [shot] { return takeShot(*shot); }};
}
