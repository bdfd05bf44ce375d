#include "simulator/commands/FlowFiles.h"

#include "simulator/conversation/Device.h"
#include "simulator/flows/FlowReader.h"

#include <algorithm>
#include <filesystem>
#include <iostream>

namespace {

namespace fs = std::filesystem;

bool isFlowFile(const fs::path& path) {
    return path.extension() == ".yaml" || path.extension() == ".yml";
}

} // namespace

std::vector<std::string> flowFiles(const std::vector<std::string>& named) {
    std::vector<std::string> files;
    for (const std::string& path : named) {
        std::error_code error;
        if (!fs::is_directory(path, error)) {
            files.push_back(path);
            continue;
        }
        std::vector<std::string> inside;
        for (const fs::directory_entry& entry : fs::directory_iterator(path, error)) {
            if (isFlowFile(entry.path())) {
                inside.push_back(entry.path().string());
            }
        }
        std::sort(inside.begin(), inside.end());
        files.insert(files.end(), inside.begin(), inside.end());
    }
    return files;
}

std::optional<std::vector<Flow>> readFlows(const std::vector<std::string>& files) {
    std::vector<Flow> flows;
    for (const std::string& file : files) {
        FlowProblems problems(file);
        if (std::optional<Flow> flow = readFlowFile(file, problems)) {
            if (const Result<Device> device = deviceNamed(flow->device.empty() ? "15" : flow->device); !device) {
                problems.add(std::nullopt, device.failure().what);
            }
            flows.push_back(*std::move(flow));
        }
        for (const Finding& problem : problems.findings()) {
            std::cerr << problem.describe() << '\n';
        }
        if (!problems.findings().empty()) {
            return std::nullopt;
        }
    }
    return flows;
}
