#include "tests/support/Output.h"

#include "tests/support/OutputCapture.h"

#include <cstdio>
#include <iostream>
#include <unistd.h>

namespace support {

namespace {

void flushAll() {
    std::cout.flush();
    std::cerr.flush();
    std::fflush(nullptr);
}

} // namespace

void OutputCapture::begin() {
    flushAll();
    m_file = std::tmpfile();
    m_taken = 0;
    m_saved = dup(m_descriptor);
    dup2(fileno(m_file), m_descriptor);
}

std::string OutputCapture::end() {
    std::string rest = take();
    dup2(m_saved, m_descriptor);
    close(m_saved);
    std::fclose(m_file);
    return rest;
}

std::string OutputCapture::take() {
    flushAll();
    std::string text;
    char buffer[4096];
    ssize_t count = 0;
    while ((count = pread(fileno(m_file), buffer, sizeof buffer, m_taken)) > 0) {
        text.append(buffer, static_cast<std::size_t>(count));
        m_taken += count;
    }
    return text;
}

OutputCapture& standardOutputCapture() {
    static OutputCapture capture{STDOUT_FILENO};
    return capture;
}

OutputCapture& standardErrorCapture() {
    static OutputCapture capture{STDERR_FILENO};
    return capture;
}

std::string takeStandardOutput() {
    return standardOutputCapture().take();
}

std::string takeStandardError() {
    return standardErrorCapture().take();
}

} // namespace support
