#include "platform/foundation/DebugConsole.h"

#include <cerrno>
#include <cstdio>
#include <mutex>
#include <poll.h>
#include <unistd.h>

namespace {

/// Lines of several threads must not mix, and one write is only whole up to the size of a pipe's buffer.
struct Console {
    std::mutex mutex;
    std::function<void(std::string_view)> observer;
    std::string (*escape)(std::string_view) = nullptr;
    bool isBroken = false;
};

Console& console() {
    static Console console;
    return console;
}

/// False when standard output is gone.
bool writeSome(std::string_view& rest) {
    const ssize_t count = write(STDOUT_FILENO, rest.data(), rest.size());
    if (count >= 0) {
        rest.remove_prefix(static_cast<std::size_t>(count));
        return true;
    }
    if (errno == EAGAIN || errno == EWOULDBLOCK) {
        pollfd output{STDOUT_FILENO, POLLOUT, 0};
        poll(&output, 1, -1);
        return true;
    }
    return errno == EINTR;
}

} // namespace

void print(std::string_view line) {
    const std::lock_guard lock(console().mutex);
    std::string text = console().escape != nullptr ? console().escape(line) : std::string(line);
    text += '\n';
    std::string_view rest = text;
    std::fflush(stdout); // what others left in the stream's buffer came first
    while (!rest.empty() && writeSome(rest)) {
    }
    console().isBroken = console().isBroken || !rest.empty();
    if (console().observer) {
        console().observer(line);
    }
}

void setDebugConsoleObserver(std::function<void(std::string_view)> observer) {
    const std::lock_guard lock(console().mutex);
    console().observer = std::move(observer);
}

void setDebugConsoleEscape(std::string (*escape)(std::string_view)) {
    const std::lock_guard lock(console().mutex);
    console().escape = escape;
}

bool isDebugConsoleBroken() {
    const std::lock_guard lock(console().mutex);
    return console().isBroken;
}
