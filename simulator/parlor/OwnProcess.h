#pragma once

#include <functional>
#include <string>
#include <sys/types.h>
#include <vector>

/// What work in a process of its own has come to.
struct OwnOutcome {
    std::string text;    // what it gave; empty when it ended before
    std::string problem; // why something is missing; empty as a rule
};

/// Does each work in a copy of this process, as many at a time as the machine has processors, beginning at once. What
/// the extension reads once a process (the height of the screen) is then read for each, and a stop or a crash ends the
/// copy alone. Of the threads of this process, a copy has the one that asks.
class OwnProcesses {
public:
    using Work = std::function<std::string()>;

    explicit OwnProcesses(std::vector<Work> works);
    /// Waits for what came of them, in their order. Once.
    [[nodiscard]] std::vector<OwnOutcome> finish();

private:
    struct Copy {
        pid_t process = -1;
        int text = -1; // the reading end
        int error = 0; // why there is no process
    };

    static Copy start(const Work& work);
    static OwnOutcome waitFor(const Copy& copy);
    void startMore(std::size_t finished);

    std::vector<Work> m_works;
    std::vector<Copy> m_copies;
};

[[nodiscard]] OwnOutcome inOwnProcess(const OwnProcesses::Work& work);

/// For work that cannot go on: ends the copy at once with this text.
[[noreturn]] void endOwnProcess(const std::string& text);
