#include "simulator/parlor/Commands.h"

#include "platform/foundation/Nearest.h"
#include "simulator/check/FindingsReport.h"
#include "simulator/flows/FlowReader.h"
#include "simulator/pictures/PictureFile.h"

#include <cstdio>
#include <iostream>
#include <unistd.h>

void tell(const Findings& findings) {
    for (const Finding& finding : findings) {
        std::cerr << printableLines(finding.describe()) << std::endl;
    }
}

Result<std::vector<NamedFlow>> readFlowsAt(const std::vector<std::string>& paths) {
    std::vector<NamedFlow> flows;
    std::string places;
    for (const std::string& path : paths) {
        places += (places.empty() ? "" : " and ") + path;
        for (const std::string& file : flowFilesAt(path)) {
            NamedFlow& named = flows.emplace_back(NamedFlow{file, {}, {}});
            named.flow = readFlowFile(file, named.findings);
        }
    }
    if (flows.empty()) {
        return Failure{"there is no flow (*.yaml) to play in " + places};
    }
    return flows;
}

std::optional<Failure> takeList(std::vector<std::string>& paths, std::optional<std::string>& content) {
    const auto isList = [](const std::string& path) { return std::filesystem::path(path).extension() == ".json"; };
    for (const std::string& path : paths) {
        if (isList(path) && content) {
            return Failure{"one list can be shown at a time: " + *content + " or " + path};
        }
        content = isList(path) ? path : content;
    }
    std::erase_if(paths, isList);
    return std::nullopt;
}

std::string notEmpty(const std::string& text) {
    return text.empty() ? "an empty text names nothing" : "";
}

std::function<std::string(const std::string&)> oneOf(const std::vector<std::string>& names) {
    return [names](const std::string& text) -> std::string {
        std::string all;
        for (const std::string& name : names) {
            if (name == text) {
                return "";
            }
            all += (all.empty() ? "" : ", ") + name;
        }
        return "'" + text + "' is none of " + all + suggestion(text, names);
    };
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
    const std::string reason = writeAll(m_output, bytes);
    return reason.empty() ? std::nullopt : std::optional(Failure{"standard output cannot be written: " + reason});
}
