#include "simulator/parlor/OwnProcess.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iostream>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

constexpr const char* thisProgram = "/proc/self/exe";

/// 0, or why there is no such process.
int start(std::vector<std::string> arguments) {
    std::string name = "parlor";
    std::vector<char*> words{name.data()};
    for (std::string& argument : arguments) {
        words.push_back(argument.data());
    }
    words.push_back(nullptr);
    pid_t process = 0;
    return posix_spawn(&process, thisProgram, nullptr, nullptr, words.data(), environ);
}

/// The exit status of the one that ends first; that of a failure when it did not end by itself.
int waitForOne() {
    int status = 0;
    while (wait(&status) < 0 && errno == EINTR) {
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
    unsigned running = 0;
    int worst = 0;
    for (const std::vector<std::string>& arguments : argumentLists) {
        if (running == atATime) {
            worst = std::max(worst, waitForOne());
            --running;
        }
        if (const int error = start(arguments)) {
            std::cerr << "parlor: no further process: " << std::strerror(error) << '\n';
            worst = 2;
            break;
        }
        ++running;
    }
    for (; running > 0; --running) {
        worst = std::max(worst, waitForOne());
    }
    if (worst > 1) {
        return Failure{"not all of the work could be done"};
    }
    return Findings(static_cast<std::size_t>(worst)); // an error that has been told
}
