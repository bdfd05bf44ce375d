#include "simulator/parlor/OwnProcess.h"

#include "platform/dispatch/WorkerPool.h"
#include "platform/foundation/DebugConsole.h"
#include "platform/foundation/FatalErrorHandler.h"
#include "simulator/pictures/PictureFile.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <iostream>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

int textPipe = -1; // of a copy, to the process that waits for it

/// What a copy says by ending.
enum CopyStatus { copyFine = 0, copyStopped = 1, copyOutputBroken = 2, copyDiskFull = 3 };

CopyStatus statusNow() {
    return isDebugConsoleBroken() ? copyOutputBroken : hasWritingFailed() ? copyDiskFull : copyFine;
}

[[noreturn]] void endCopy(std::string_view text, CopyStatus status) {
    static_cast<void>(writeAll(textPipe, text));
    std::cout.flush();
    std::fflush(stdout);
    _exit(status == copyFine ? statusNow() : status);
}

std::string problemOf(int status) {
    if (WIFSIGNALED(status)) {
        return std::string("the program ended early: ") + strsignal(WTERMSIG(status));
    }
    switch (WEXITSTATUS(status)) {
    case copyFine:
        return "";
    case copyOutputBroken:
        return "standard output cannot be written";
    case copyDiskFull:
        return "not everything could be written";
    default:
        return "the program ended early: exit status " + std::to_string(WEXITSTATUS(status));
    }
}

} // namespace

OwnProcesses::OwnProcesses(std::vector<Work> works) : m_works(std::move(works)) {
    startMore(0);
}

std::vector<OwnOutcome> OwnProcesses::finish() {
    std::vector<OwnOutcome> outcomes;
    while (outcomes.size() < m_works.size()) {
        outcomes.push_back(waitFor(m_copies[outcomes.size()]));
        startMore(outcomes.size());
    }
    return outcomes;
}

void OwnProcesses::startMore(std::size_t finished) {
    const std::size_t atATime = std::max(1U, std::thread::hardware_concurrency());
    while (m_copies.size() < std::min(m_works.size(), finished + atATime)) {
        m_copies.push_back(start(m_works[m_copies.size()]));
    }
}

OwnProcesses::Copy OwnProcesses::start(const Work& work) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) {
        return {.error = errno};
    }
    WorkerPool::shared().finish();
    std::fflush(nullptr); // else each copy would write what is waiting, too
    std::cout.flush();
    const pid_t process = fork();
    if (process == 0) {
        close(ends[0]);
        textPipe = ends[1];
        setFatalErrorHandler([](std::string_view line) { endCopy(line, copyStopped); });
        static_cast<void>(writeAll(textPipe, work()));
        std::exit(statusNow());
    }
    const int error = process < 0 ? errno : 0;
    close(ends[1]);
    return {process, ends[0], error};
}

OwnOutcome OwnProcesses::waitFor(const Copy& copy) {
    if (copy.error != 0) {
        return {"", std::string("no further process: ") + std::strerror(copy.error)};
    }
    OwnOutcome outcome;
    char buffer[4096];
    ssize_t count = 0;
    while ((count = read(copy.text, buffer, sizeof buffer)) > 0 || (count < 0 && errno == EINTR)) {
        outcome.text.append(buffer, static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    }
    close(copy.text);
    int status = 0;
    while (waitpid(copy.process, &status, 0) < 0 && errno == EINTR) {
    }
    if (WIFEXITED(status) && WEXITSTATUS(status) == copyStopped) {
        return {"", "the extension stopped the program: " + outcome.text};
    }
    outcome.problem = problemOf(status);
    return outcome;
}

OwnOutcome inOwnProcess(const OwnProcesses::Work& work) {
    return OwnProcesses({work}).finish().front();
}

void endOwnProcess(const std::string& text) {
    endCopy(text, copyFine);
}
