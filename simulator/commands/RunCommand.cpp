#include "simulator/commands/RunCommand.h"

#include "simulator/commands/ContentFlow.h"
#include "simulator/commands/FlowFiles.h"
#include "simulator/commands/Report.h"
#include "simulator/commands/Stage.h"
#include "simulator/flows/FlowPlayer.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>

namespace {

void printEvent(const Event& event) {
    char time[32];
    std::snprintf(time, sizeof time, "%7.3f s  ", static_cast<double>(event.time.count()) / 1000);
    std::cerr << time << event.text << std::endl;
}

FlowResult playOn(const Stage& stage, const Flow& flow, const RunOptions& options) {
    const bool quiet = options.quiet;
    const Device device = setStage(stage, flow);
    if (!quiet) {
        std::cerr << flow.name << " (" << flow.file << ", device " << device.name << ")" << std::endl;
    }
    return FlowPlayer(flow, device,
                      [quiet](const Event& event) {
                          if (!quiet || event.kind == "failure") {
                              printEvent(event);
                          }
                      },
                      {options.output, options.updateGoldens})
        .play();
}

std::optional<std::vector<Flow>> flowsToPlay(const RunOptions& options) {
    if (!options.flows.empty()) {
        return readFlows(flowFiles(options.flows));
    }
    if (options.content) { // the typical road is about the lists that come with the extension
        return std::vector{contentFlow(*options.content)};
    }
    return readFlows({besideProgram("flows/typical-road.yaml").string()});
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
    if (options.updateGoldens && std::getenv("CI") != nullptr) {
        std::cerr << "parlor: golden pictures are not updated where CI is set in the environment\n";
        return exitUsage;
    }
    const std::optional<std::vector<Flow>> flows = flowsToPlay(options);
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
        results.push_back(playOn(*stage, flow, options));
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
