#include "simulator/parlor/OwnProcess.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <deque>
#include <iostream>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

constexpr const char* thisProgram = "/proc/self/exe";

/// 0, or why there is no such process.
int start(std::vector<std::string> arguments, pid_t& process) {
    std::string name = "parlor";
    std::vector<char*> words{name.data()};
    for (std::string& argument : arguments) {
        words.push_back(argument.data());
    }
    words.push_back(nullptr);
    return posix_spawn(&process, thisProgram, nullptr, nullptr, words.data(), environ);
}

/// Its exit status; that of a failure when it did not end by itself.
int waitFor(pid_t process) {
    int status = 0;
    while (waitpid(process, &status, 0) < 0 && errno == EINTR) {
    }
    if (WIFEXITED(status)) {
        return WEXITSTATUS(status);
    }
    std::cerr << "parlor: a part of the work ended early: " << strsignal(WTERMSIG(status)) << '\n';
    return 2;
}

} // namespace

CommandResult runInOwnProcesses(const std::vector<std::vector<std::string>>& argumentLists) {
    const unsigned atATime = std::max(1U, std::thread::hardware_concurrency());
    std::deque<pid_t> running;
    int worst = 0;
    const auto waitForOldest = [&] {
        worst = std::max(worst, waitFor(running.front()));
        running.pop_front();
    };
    for (const std::vector<std::string>& arguments : argumentLists) {
        if (running.size() == atATime) {
            waitForOldest();
        }
        if (const int error = start(arguments, running.emplace_back())) {
            std::cerr << "parlor: no further process: " << std::strerror(error) << '\n';
            running.pop_back();
            worst = 2;
            break;
        }
    }
    while (!running.empty()) {
        waitForOldest();
    }
    if (worst > 1) {
        return Failure{"not all of the work could be done"};
    }
    return Findings(static_cast<std::size_t>(worst)); // an error that has been told
}
