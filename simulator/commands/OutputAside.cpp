#include "simulator/commands/OutputAside.h"

#include <cstdio>
#include <unistd.h>

OutputAside::OutputAside() : m_output(dup(STDOUT_FILENO)) {
    std::fflush(stdout);
    dup2(STDERR_FILENO, STDOUT_FILENO);
}

OutputAside::~OutputAside() {
    std::fflush(stdout);
    dup2(m_output, STDOUT_FILENO);
    close(m_output);
}
