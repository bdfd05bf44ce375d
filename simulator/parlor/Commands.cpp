#include "simulator/parlor/Commands.h"

#include "simulator/check/FindingsReport.h"
#include "simulator/flows/FlowReader.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <unistd.h>

void tell(const Findings& findings) {
    for (const Finding& finding : findings) {
        std::cerr << printableLines(finding.describe()) << std::endl;
    }
}

Result<std::vector<Flow>> readFlowsToPlay(const std::vector<std::string>& paths) {
    Findings findings;
    std::vector<Flow> flows;
    for (const std::string& path : paths) {
        for (const std::string& file : flowFilesAt(path)) {
            if (std::optional<Flow> flow = readFlowFile(file, findings)) {
                flows.push_back(*std::move(flow));
            }
        }
    }
    tell(findings);
    if (hasErrors(findings)) {
        return Failure{"nothing is played, as not every flow can be read"};
    }
    if (flows.empty()) {
        return Failure{"there is no flow (*.yaml) to play"};
    }
    return flows;
}

OutputAside::OutputAside() : m_output(dup(STDOUT_FILENO)) {
    std::fflush(stdout);
    dup2(STDERR_FILENO, STDOUT_FILENO);
}

OutputAside::~OutputAside() {
    std::fflush(stdout);
    dup2(m_output, STDOUT_FILENO);
    close(m_output);
}

std::optional<Failure> OutputAside::write(std::string_view bytes) const {
    while (!bytes.empty()) {
        const ssize_t count = ::write(m_output, bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR) {
            return Failure{std::string("standard output cannot be written: ") + std::strerror(errno)};
        }
        bytes.remove_prefix(count < 0 ? 0 : static_cast<std::size_t>(count));
    }
    return std::nullopt;
}
