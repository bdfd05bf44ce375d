#include "simulator/commands/CommandLine.h"

#include "content/DropdownRows.h"
#include "platform/foundation/Nearest.h"
#include "simulator/commands/GalleryCommand.h"
#include "simulator/commands/RunCommand.h"
#include "simulator/commands/ShotCommand.h"
#include "simulator/commands/TreeCommand.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cmath>
#include <iostream>

namespace {

constexpr const char* examples = "Examples:\n"
                                 "  parlor run                         plays the typical road\n"
                                 "  parlor run --content MyList.json   shows your content file\n"
                                 "  parlor tree                        what the screen is made of\n"
                                 "  parlor run --help                  all that a command can do\n";

constexpr const char* runExamples =
    "Examples:\n"
    "  parlor run                                  the typical road\n"
    "  parlor run --content MyList.json            your list on screen, as that of \"Adult (18+)\"\n"
    "  parlor run --content Friends.json flows/friends.yaml\n"
    "                                              a file named after a group is shown for that group\n"
    "  parlor run flows --report report.json       every flow of a folder, with a report\n"
    "  parlor run flows/couple.yaml --device se    on the smallest phone\n"
    "\n"
    "Standard output carries the extension's debug lines; what happens is told on standard error.\n"
    "Exit status: 0 fine, 1 something failed or was found, 2 wrong usage or unreadable input.\n";

constexpr const char* treeExamples = "Examples:\n"
                                     "  parlor tree                                 after opening\n"
                                     "  parlor tree flows/friends.yaml              after playing a flow\n"
                                     "  parlor tree --content MyList.json --device 320x568@2\n";

constexpr const char* shotExamples = "Examples:\n"
                                     "  parlor shot -o screen.png\n"
                                     "  parlor shot --group Family --dark --device se -o family.png\n"
                                     "  parlor shot --content MyList.json --open-dropdown --bare -o - | display\n"
                                     "\n"
                                     "A file that exists and is no PNG picture is left alone.\n";

constexpr const char* galleryExamples = "Examples:\n"
                                        "  parlor gallery -o out/gallery\n"
                                        "  parlor gallery -o out/gallery --device se --device 15max\n";

void addBundle(CLI::App& command, RunOptions& options) {
    command.add_option("--bundle", options.bundle, "The extension's bundle (default: the one beside this program)")
        ->type_name("DIR");
    command
        .add_option("--content", options.content,
                    "Shows this content file for the group it is named after, or else for \"Adult (18+)\"")
        ->type_name("FILE");
}

void addShared(CLI::App& command, RunOptions& options) {
    addBundle(command, options);
    command
        .add_option("--device", options.device,
                    "se, 8plus, 15, 15max, or a size such as 390x844@3 (default: the flow's own, or 15)")
        ->type_name("NAME");
}

/// Empty when the text is one, else what to say.
std::string finiteNumber(const std::string& text) {
    double number = 0;
    return CLI::detail::lexical_cast(text, number) && std::isfinite(number) ? "" : text + " is no distance";
}

CLI::App* addShot(CLI::App& app, RunOptions& options, ShotOptions& shot) {
    CLI::App* command = app.add_subcommand("shot", "Takes a picture of the screen");
    command->add_option("-o,--output", shot.file, "The PNG file; - for standard output")->type_name("FILE")->required();
    addShared(*command, options);
    command->add_option("--group", shot.group, "Adult (18+), Friends, Couple or Family")
        ->check(CLI::IsMember(playerGroupTitles()))
        ->option_text("NAME");
    command->add_flag("--dark", shot.dark, "In the dark appearance");
    command->add_option("--style", shot.style, "compact or expanded (default)")
        ->check(CLI::IsMember({"compact", "expanded"}))
        ->option_text("STYLE");
    command->add_flag("--open-dropdown", shot.openDropdown, "With the list of groups open");
    command->add_option("--scroll", shot.scroll, "How far the modes are scrolled")
        ->check(finiteNumber)
        ->type_name("POINTS");
    command->add_flag("--bare", shot.bare, "Without the conversation around the extension");
    command->footer(shotExamples);
    return command;
}

CLI::App* addGallery(CLI::App& app, RunOptions& options, GalleryOptions& gallery) {
    CLI::App* command = app.add_subcommand("gallery", "Takes pictures of everything, with a page and a contact sheet");
    command->add_option("-o,--output", gallery.folder, "Where the pictures go")->type_name("DIR")->required();
    addBundle(*command, options);
    command->add_option("--device", gallery.devices, "As for run; may be given several times (default: 15)")
        ->type_name("NAME");
    command->add_flag("--force", gallery.force, "Also overwrites files that are not of an earlier gallery");
    command->footer(galleryExamples);
    return command;
}

/// Says on standard error which command was probably meant.
bool isCommandOrOption(const CLI::App& app, const std::string& argument) {
    std::vector<std::string> names;
    for (const CLI::App* command : app.get_subcommands({})) {
        names.push_back(command->get_name());
    }
    if (argument.starts_with('-') || std::find(names.begin(), names.end(), argument) != names.end()) {
        return true;
    }
    std::cerr << "parlor: there is no command '" << argument << "'" << suggestion(argument, names) << '\n';
    return false;
}

} // namespace

int runCommandLine(int argc, const char* const* argv) {
    CLI::App app("Parlor: Truths & Dares in a simulated conversation");
    app.name("parlor");
    app.set_version_flag("--version", "parlor " PARLOR_VERSION);
    app.require_subcommand(1);
    app.footer(examples);
    RunOptions options;

    CLI::App* run = app.add_subcommand("run", "Plays flows without a display, in virtual time");
    run->add_option("flow", options.flows,
                    "Flow files, or folders of them (default: the typical road, or a look at the content file)")
        ->type_name("FLOW");
    addShared(*run, options);
    run->add_option("--report", options.report, "Writes what happened to this file, as JSON")->type_name("FILE");
    run->add_option("--output", options.output, "Where pictures go (default: out)")->type_name("DIR");
    run->add_flag("--update-goldens", options.updateGoldens, "Takes the golden pictures anew (never where CI is set)");
    run->add_flag("--quiet", options.quiet, "Tells failures only");
    run->footer(runExamples);

    CLI::App* tree = app.add_subcommand("tree", "Prints the view tree, with the place each view came from");
    tree->add_option("flow", options.flows, "A flow to play first (default: open the extension)")
        ->type_name("FLOW")
        ->expected(0, 1);
    addShared(*tree, options);
    tree->footer(treeExamples);

    ShotOptions shot;
    GalleryOptions gallery;
    const CLI::App* shotCommand = addShot(app, options, shot);
    const CLI::App* galleryCommand = addGallery(app, options, gallery);

    if (argc > 1 && !isCommandOrOption(app, argv[1])) {
        return exitUsage;
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? exitFine : exitUsage;
    }
    if (shotCommand->parsed()) {
        return takeShot(options, shot);
    }
    if (galleryCommand->parsed()) {
        return makeGallery(options, gallery);
    }
    return run->parsed() ? runFlows(options) : printTree(options);
}
