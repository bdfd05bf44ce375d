#include "simulator/parlor/Commands.h"

#include "platform/foundation/DebugConsole.h"
#include "platform/foundation/FatalErrorHandler.h"
#include "platform/foundation/Nearest.h"
#include "platform/interface/CatalogSets.h"
#include "simulator/check/FindingsReport.h"
#include "simulator/parlor/PreparedBundle.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <iostream>
#include <unistd.h>

namespace {

/// What the process says by ending.
enum ExitStatus { exitFine = 0, exitFailed = 1, exitUsage = 2 };

constexpr const char* examples = "Examples:\n"
                                 "  parlor run                         plays the typical road\n"
                                 "  parlor open                        the screen in a browser, to click through\n"
                                 "  parlor run my-list.json            shows your content file\n"
                                 "  parlor check my-list.json          every mistake of your list, at its place\n"
                                 "  parlor tree                        what the screen is made of\n"
                                 "  parlor run --help                  all that a command can do\n";

std::vector<std::string> namesOf(const CLI::App& app) {
    std::vector<std::string> names;
    for (const CLI::App* command : app.get_subcommands({})) {
        names.push_back(command->get_name());
    }
    return names;
}

std::vector<std::string> optionsOf(const CLI::App& app) {
    std::vector<std::string> names;
    for (const CLI::Option* option : app.get_options()) {
        for (const std::string& name : option->get_lnames()) {
            names.push_back("--" + name);
        }
    }
    return names;
}

bool isOneOf(const std::string& word, const std::vector<std::string>& words) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

/// The lists and flows of the folder that the person stands in.
std::vector<std::string> filesHere() {
    std::vector<std::string> names;
    std::error_code error;
    const std::filesystem::directory_iterator end;
    for (std::filesystem::directory_iterator item(".", error); !error && item != end; item.increment(error)) {
        if (isOneOf(item->path().extension().string(), {".json", ".yaml", ".yml"})) {
            names.push_back(item->path().filename().string());
        }
    }
    return names;
}

/// Why nothing can begin with this word.
std::string strangeBeginning(const CLI::App& app, const std::string& word) {
    if (!word.starts_with('-')) {
        std::vector<std::string> known = namesOf(app);
        const std::vector<std::string> files = filesHere();
        known.insert(known.end(), files.begin(), files.end());
        return "there is no command and no file '" + word + "'" + suggestion(word, known);
    }
    std::vector<std::string> known = optionsOf(app);
    for (const CLI::App* command : app.get_subcommands({})) {
        const std::vector<std::string> options = optionsOf(*command);
        if (isOneOf(word, options)) {
            return word + " stands behind a command, such as: parlor " + command->get_name() + " " + word;
        }
        known.insert(known.end(), options.begin(), options.end());
    }
    return "there is no option '" + word + "'" + suggestion(word, known);
}

/// A first word that is no command but a list, a flow or a folder is what `run` is about; anything else is told, with
/// the command that was probably meant. False then.
bool completeCommand(const CLI::App& app, std::vector<std::string>& words) {
    if (words.empty()) {
        std::cerr << app.help();
        return false;
    }
    std::string& first = words.front();
    if (first == "help") { // of a command, too
        first = "--help";
        std::reverse(words.begin(), words.size() > 1 ? words.begin() + 2 : words.end());
    }
    const std::vector<std::string> known{"-h", "--help", "--version"};
    if (isOneOf(words.front(), namesOf(app)) || isOneOf(words.front(), known)) {
        return true;
    }
    std::error_code error;
    if (first.starts_with('-') || !std::filesystem::exists(first, error)) {
        std::cerr << "parlor: " << printableLines(strangeBeginning(app, first)) << '\n';
        return false;
    }
    std::cerr << printableLines("parlor: parlor run " + first + "; parlor open " + first + " shows it in a browser\n");
    words.insert(words.begin(), "run");
    return true;
}

/// What is wrong with the words, with the nearest options that there are.
void tellWrongUsage(const CLI::App& app, const CLI::ParseError& error) {
    const std::vector<CLI::App*> commands = app.get_subcommands();
    const std::string name = commands.empty() ? "parlor" : "parlor " + commands.front()->get_name();
    std::vector<std::string> strangers;
    for (const CLI::App* command : commands) {
        for (const std::string& word : command->remaining()) {
            strangers.push_back("there is no '" + word + "'" + suggestion(word, optionsOf(*command)));
        }
    }
    for (const std::string& what : strangers.empty() ? std::vector<std::string>{error.what()} : strangers) {
        std::cerr << printableLines(name + ": " + what) << '\n';
    }
    std::cerr << name << " --help tells what there is\n";
}

/// The only place that turns what came of a command into an exit status.
ExitStatus conclude(const CommandResult& result) {
    if (!result) {
        std::cerr << "parlor: " << printableLines(result.failure().what) << '\n';
        return exitUsage;
    }
    return hasErrors(result.value()) ? exitFailed : exitFine;
}

/// What was written last may meet the full disk or the closed pipe only now.
ExitStatus afterOutput(ExitStatus status) {
    std::fflush(stdout);
    if (std::cout.flush() && std::ferror(stdout) == 0 && !isDebugConsoleBroken()) {
        return status;
    }
    if (status != exitUsage) { // else a reason has been told
        std::cerr << "parlor: standard output cannot be written\n";
    }
    return exitUsage;
}

/// A stream that is closed must not lend its number to a file, and one that nobody reads must not end the program.
void prepareStreams() {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(stream, F_GETFD) < 0) {
            static_cast<void>(open("/dev/null", stream == STDERR_FILENO ? O_WRONLY : O_RDONLY));
        }
    }
    std::signal(SIGPIPE, SIG_IGN);
}

ExitStatus perform(CLI::App& app, const std::vector<std::string>& words, const std::vector<ParlorCommand>& commands) {
    try {
        app.parse(std::vector<std::string>(words.rbegin(), words.rend())); // it takes them from the end
    } catch (const CLI::Success& help) {
        app.exit(help);
        return exitFine;
    } catch (const CLI::ParseError& error) {
        tellWrongUsage(app, error);
        return exitUsage;
    }
    const auto named = std::find_if(commands.begin(), commands.end(),
                                    [](const ParlorCommand& command) { return command.line->parsed(); });
    return conclude(named->run());
}

} // namespace

int main(int argc, char** argv) {
    prepareStreams();
    setFatalErrorHandler([](std::string_view) { // the extension has stopped, and the line that says why been told
        _exit(exitFailed);
    });
    if (isatty(STDOUT_FILENO) != 0) { // a list must not steer the terminal
        setDebugConsoleEscape(printableLines);
    }
    setRenderedCatalog(besideProgram("TruthsAndDares.appex") / "Assets.xcassets");
    CLI::App app("Parlor: Truths & Dares in a simulated conversation");
    app.name("parlor");
    app.set_version_flag("--version", "parlor " PARLOR_VERSION);
    app.require_subcommand(1);
    app.footer(examples);
    std::vector<ParlorCommand> commands;
    for (const auto add : {addRunCommand, addOpenCommand, addCheckCommand, addTreeCommand, addShotCommand,
                           addGalleryCommand, addSchemaCommand}) {
        commands.push_back(add(app));
    }
    std::vector<std::string> words(argv + 1, argv + argc);
    return afterOutput(completeCommand(app, words) ? perform(app, words, commands) : exitUsage);
}
