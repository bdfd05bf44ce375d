#include "simulator/parlor/Commands.h"

#include "platform/foundation/Nearest.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iostream>

namespace {

/// What the process says by ending.
enum ExitStatus { exitFine = 0, exitFailed = 1, exitUsage = 2 };

constexpr const char* examples = "Examples:\n"
                                 "  parlor run                         plays the typical road\n"
                                 "  parlor open                        the screen in a browser, to click through\n"
                                 "  parlor run --content MyList.json   shows your content file\n"
                                 "  parlor check my-list.json          every mistake of your list, at its place\n"
                                 "  parlor tree                        what the screen is made of\n"
                                 "  parlor run --help                  all that a command can do\n";

/// A first word that is no command is told by itself, with the command that was probably meant.
bool isUnknownCommand(const CLI::App& app, const std::string& word) {
    std::vector<std::string> names;
    for (const CLI::App* command : app.get_subcommands({})) {
        names.push_back(command->get_name());
    }
    if (word.starts_with('-') || std::find(names.begin(), names.end(), word) != names.end()) {
        return false;
    }
    std::cerr << "parlor: there is no command '" << word << "'" << suggestion(word, names) << '\n';
    return true;
}

/// The only place that turns what came of a command into an exit status.
ExitStatus conclude(const CommandResult& result) {
    if (!result) {
        std::cerr << "parlor: " << result.failure().what << '\n';
        return exitUsage;
    }
    return hasErrors(result.value()) ? exitFailed : exitFine;
}

} // namespace

int main(int argc, char** argv) {
    CLI::App app("Parlor: Truths & Dares in a simulated conversation");
    app.name("parlor");
    app.set_version_flag("--version", "parlor " PARLOR_VERSION);
    app.require_subcommand(1);
    app.footer(examples);
    std::vector<ParlorCommand> commands;
    for (const auto add : {addRunCommand, addOpenCommand, addCheckCommand, addCheckScreenCommand, addTreeCommand,
                           addShotCommand, addGalleryCommand, addSchemaCommand}) {
        commands.push_back(add(app));
    }
    if (argc > 1 && isUnknownCommand(app, argv[1])) {
        return exitUsage;
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? exitFine : exitUsage;
    }
    const auto named = std::find_if(commands.begin(), commands.end(),
                                    [](const ParlorCommand& command) { return command.line->parsed(); });
    return conclude(named->run());
}
