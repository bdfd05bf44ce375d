#pragma once

#include <cstdio>
#include <string>

namespace support {

/// Redirects one file descriptor into an unlinked temporary file while a test runs. Works below stdio, so it also
/// sees what other threads and libraries write.
class OutputCapture {
public:
    explicit OutputCapture(int descriptor) : m_descriptor(descriptor) {}

    void begin();
    /// Restores the descriptor; returns what nobody took.
    [[nodiscard]] std::string end();
    [[nodiscard]] std::string take();

private:
    int m_descriptor;
    int m_saved = -1;
    std::FILE* m_file = nullptr;
    long m_taken = 0;
};

OutputCapture& standardOutputCapture();
OutputCapture& standardErrorCapture();

} // namespace support
