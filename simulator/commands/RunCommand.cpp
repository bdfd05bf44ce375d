#include "simulator/commands/RunCommand.h"

#include "simulator/commands/Report.h"
#include "simulator/commands/Stage.h"
#include "simulator/conversation/ExtensionBundle.h"
#include "simulator/flows/FlowPlayer.h"
#include "simulator/flows/FlowReader.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iostream>

namespace {

namespace fs = std::filesystem;

bool isFlowFile(const fs::path& path) {
    return path.extension() == ".yaml" || path.extension() == ".yml";
}

/// A folder stands for the flows in it, by name.
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

/// All flows, or none when one of them cannot be read.
std::optional<std::vector<Flow>> readFlows(const std::vector<std::string>& files) {
    std::vector<Flow> flows;
    for (const std::string& file : files) {
        FlowProblems problems(file);
        if (std::optional<Flow> flow = readFlowFile(file, problems)) {
            if (const Result<Device> device = deviceNamed(flow->device.empty() ? "15" : flow->device); !device) {
                problems.add(0, 0, device.error());
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

void printEvent(const Event& event) {
    char time[32];
    std::snprintf(time, sizeof time, "%7.3f s  ", static_cast<double>(event.time.count()) / 1000);
    std::cerr << time << event.text << std::endl;
}

FlowResult playOn(const Stage& stage, const Flow& flow, bool quiet) {
    std::vector<ResourceOverride> overrides = stage.overrides;
    overrides.insert(overrides.end(), flow.overrides.begin(), flow.overrides.end());
    openExtensionBundle(stage.bundle, overrides);
    const Device device = flow.device.empty() ? stage.device : deviceNamed(flow.device).value();
    if (!quiet) {
        std::cerr << flow.name << " (" << flow.file << ", device " << device.name << ")" << std::endl;
    }
    return FlowPlayer(flow, device,
                      [quiet](const Event& event) {
                          if (!quiet || event.kind == "failure") {
                              printEvent(event);
                          }
                      })
        .play();
}

bool writeReport(const std::string& path, const std::vector<FlowResult>& results) {
    std::ofstream file(path, std::ios::binary);
    file << reportText(results);
    file.close();
    std::cerr << "parlor: " << (file ? "report written to " : "cannot write the report ") << path << '\n';
    return static_cast<bool>(file);
}

} // namespace

ExitStatus runFlows(const RunOptions& options) {
    const std::vector<std::string> named =
        options.flows.empty() ? std::vector{besideProgram("flows/typical-road.yaml").string()} : options.flows;
    const std::optional<std::vector<Flow>> flows = readFlows(flowFiles(named));
    if (!flows) {
        return exitUsage;
    }
    if (flows->empty()) {
        std::cerr << "parlor: there is no flow (*.yaml) to play\n";
        return exitUsage;
    }
    ExitStatus status = exitFine;
    const std::optional<Stage> stage = prepareStage(options, status);
    if (!stage) {
        return status;
    }
    std::vector<FlowResult> results;
    std::size_t failed = 0;
    for (const Flow& flow : *flows) {
        results.push_back(playOn(*stage, flow, options.quiet));
        failed += results.back().failures.empty() ? 0 : 1;
    }
    if (!options.quiet || failed > 0) {
        std::cerr << "parlor: " << results.size() << " played, " << failed << " failed\n";
    }
    if (options.report && !writeReport(*options.report, results)) {
        return exitUsage;
    }
    return failed > 0 ? exitFailed : status;
}
