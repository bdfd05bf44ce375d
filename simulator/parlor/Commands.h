#pragma once

#include "simulator/flows/Flow.h"

namespace CLI {
class App;
}

/// What came of a command: what it found and what failed, told on standard error when it was met. A failure, not told
/// yet, when the command could not do its work: wrong usage, unreadable input, a result that cannot be written.
using CommandResult = Result<Findings>;

/// A command of the program: its part of the command line, and what does it once that has been read.
struct ParlorCommand {
    const CLI::App* line;
    std::function<CommandResult()> run;
};

// Each adds the command to the command line; it stands at the end of the command's own source.
[[nodiscard]] ParlorCommand addRunCommand(CLI::App& app);
[[nodiscard]] ParlorCommand addOpenCommand(CLI::App& app);
[[nodiscard]] ParlorCommand addCheckCommand(CLI::App& app);
[[nodiscard]] ParlorCommand addTreeCommand(CLI::App& app);
[[nodiscard]] ParlorCommand addSchemaCommand(CLI::App& app);
[[nodiscard]] ParlorCommand addShotCommand(CLI::App& app);
[[nodiscard]] ParlorCommand addGalleryCommand(CLI::App& app);

/// Tells findings on standard error, a line each, without control characters.
void tell(const Findings& findings);

/// A flow that the command line names: as it was read, or why it could not be.
struct NamedFlow {
    std::string file;
    std::optional<Flow> flow;
    Findings findings;
};

/// The flows of files and of folders; a failure when there are none.
[[nodiscard]] Result<std::vector<NamedFlow>> readFlowsAt(const std::vector<std::string>& paths);

/// Takes a list out of the paths, to be the content file. Fails when that makes two.
[[nodiscard]] std::optional<Failure> takeList(std::vector<std::string>& paths, std::optional<std::string>& content);

// What options can be checked with; each gives an empty text, or why the value does not do.
[[nodiscard]] std::string notEmpty(const std::string& text);
/// Names the nearest of those that there are.
[[nodiscard]] std::function<std::string(const std::string&)> oneOf(const std::vector<std::string>& names);

/// Sends what is written to standard output to standard error while it lives: for commands whose own result goes to
/// standard output.
class OutputAside {
public:
    OutputAside();
    ~OutputAside();
    OutputAside(const OutputAside&) = delete;
    OutputAside& operator=(const OutputAside&) = delete;

    /// To standard output all the same.
    [[nodiscard]] std::optional<Failure> write(std::string_view bytes) const;

private:
    int m_output;
};
