#include "platform/foundation/FatalError.h"

#include "platform/foundation/FatalErrorHandler.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>

namespace {

std::function<void(std::string_view)>& handlerSlot() {
    static std::function<void(std::string_view)> handler;
    return handler;
}

} // namespace

void fatalError(std::string_view message, std::string_view file, int line) {
    fatalError(std::string(message) + ": file " + std::string(file) + ", line " + std::to_string(line));
}

void fatalError(std::string_view message) {
    const std::string line = "Fatal error: " + std::string(message) + "\n";
    std::fflush(stdout);
    std::fwrite(line.data(), 1, line.size(), stderr);
    std::fflush(stderr);
    if (const std::function<void(std::string_view)> handler = std::exchange(handlerSlot(), {})) { // it may fail, too
        handler(std::string_view(line).substr(0, line.size() - 1));
    }
    std::abort();
}

void setFatalErrorHandler(std::function<void(std::string_view)> handler) {
    handlerSlot() = std::move(handler);
}
