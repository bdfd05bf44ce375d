#include "platform/foundation/FatalError.h"

#include <cstdio>
#include <cstdlib>
#include <string>

void fatalError(std::string_view message, std::string_view file, int line) {
    fatalError(std::string(message) + ": file " + std::string(file) + ", line " + std::to_string(line));
}

void fatalError(std::string_view message) {
    const std::string line = "Fatal error: " + std::string(message) + "\n";
    std::fflush(stdout);
    std::fwrite(line.data(), 1, line.size(), stderr);
    std::fflush(stderr);
    std::abort();
}
