#include "simulator/commands/TreeCommand.h"

#include "simulator/commands/Stage.h"
#include "simulator/conversation/ExtensionBundle.h"
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
    FlowProblems problems(options.flows.empty() ? "opening" : options.flows.front());
    std::optional<Flow> flow = options.flows.empty() ? readFlow("- launchApp\n- waitForAnimationToEnd\n", problems)
                                                     : readFlowFile(options.flows.front(), problems);
    for (const Finding& problem : problems.findings()) {
        std::cerr << problem.describe() << '\n';
    }
    return flow;
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
        std::vector<ResourceOverride> overrides = stage->overrides;
        overrides.insert(overrides.end(), flow->overrides.begin(), flow->overrides.end());
        openExtensionBundle(stage->bundle, overrides);
        FlowPlayer player(*flow, stage->device, {});
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
