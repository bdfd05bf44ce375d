#pragma once

#include <string>

/// What the running test printed. Every test runs with its standard output and error captured; a line that the test
/// does not take is unannounced and fails it.
namespace support {

/// Everything written to standard output since the test began or since the last call.
[[nodiscard]] std::string takeStandardOutput();
/// The same for standard error.
[[nodiscard]] std::string takeStandardError();

} // namespace support
