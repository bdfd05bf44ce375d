#pragma once

#include <string_view>

/// Stops the program as the platform does: flushes standard output, writes
/// "Fatal error: MESSAGE: file FILE, line LINE" to standard error and aborts. Any thread.
[[noreturn]] void fatalError(std::string_view message, std::string_view file, int line);
/// The same without a place, for faults that lie in data or in a caller.
[[noreturn]] void fatalError(std::string_view message);
