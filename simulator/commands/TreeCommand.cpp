#include "simulator/commands/TreeCommand.h"

#include "simulator/commands/FlowFiles.h"
#include "simulator/commands/Stage.h"
#include "simulator/conversation/ViewTree.h"
#include "simulator/flows/FlowPlayer.h"
#include "simulator/flows/FlowReader.h"

#include <cstdio>
#include <iostream>
#include <unistd.h>

namespace {

/// Sends what is written to standard output to standard error while it lives.
class OutputAside {
public:
    OutputAside() : m_output(dup(STDOUT_FILENO)) {
        std::fflush(stdout);
        dup2(STDERR_FILENO, STDOUT_FILENO);
    }
    ~OutputAside() {
        std::fflush(stdout);
        dup2(m_output, STDOUT_FILENO);
        close(m_output);
    }
    OutputAside(const OutputAside&) = delete;
    OutputAside& operator=(const OutputAside&) = delete;

private:
    int m_output;
};

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
    std::cout << tree << std::flush;
    return status;
}
