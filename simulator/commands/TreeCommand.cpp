#include "simulator/commands/TreeCommand.h"

#include "simulator/commands/FlowFiles.h"
#include "simulator/commands/OutputAside.h"
#include "simulator/commands/Stage.h"
#include "simulator/conversation/ViewTree.h"
#include "simulator/flows/FlowPlayer.h"
#include "simulator/flows/FlowReader.h"

#include <iostream>

namespace {

std::optional<Flow> flowToPlay(const RunOptions& options) {
    if (options.flows.empty()) {
        FlowProblems none("opening");
        return readFlow("- launchApp\n- waitForAnimationToEnd\n", none);
    }
    const std::optional<std::vector<Flow>> flows = readFlows(options.flows);
    return flows ? std::optional(flows->front()) : std::nullopt;
}

} // namespace

ExitStatus printTree(const RunOptions& options) {
    const std::optional<Flow> flow = flowToPlay(options);
    ExitStatus status = exitUsage;
    const std::optional<Stage> stage = flow ? prepareStage(options, status) : std::nullopt;
    if (!stage) {
        return status;
    }
    std::string tree;
    {
        const OutputAside aside;
        FlowPlayer player(*flow, setStage(*stage, *flow), {});
        const FlowResult result = player.play();
        for (const Finding& failure : result.failures) {
            std::cerr << failure.describe() << '\n';
            status = exitFailed;
        }
        tree = describeTree(player.host().window(), TreeDetail::withSources);
    }
    return std::cout << tree << std::flush ? status : exitUsage;
}
