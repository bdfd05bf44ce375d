#include "platform/foundation/FatalError.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

[[noreturn]] void stopWith(const std::string& line) {
    std::fflush(stdout);
    std::fwrite(line.data(), 1, line.size(), stderr);
    std::fflush(stderr);
    std::abort();
}

} // namespace

void fatalError(std::string_view message, std::string_view file, int line) {
    stopWith("Fatal error: " + std::string(message) + ": file " + std::string(file) + ", line " + std::to_string(line) +
             "\n");
}

void fatalError(std::string_view message) {
    stopWith("Fatal error: " + std::string(message) + "\n");
}
