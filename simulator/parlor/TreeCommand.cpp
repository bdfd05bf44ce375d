#include "simulator/check/FindingsReport.h"
#include "simulator/conversation/ViewTree.h"
#include "simulator/flows/FlowPlayer.h"
#include "simulator/parlor/FlowComposer.h"
#include "simulator/parlor/OwnProcess.h"
#include "simulator/parlor/PreparedBundle.h"
#include "simulator/parlor/Report.h"

#include <CLI/CLI.hpp>

#include <iostream>

namespace {

constexpr const char* examples = "Examples:\n"
                                 "  parlor tree                                 after opening\n"
                                 "  parlor tree flows/friends.yaml              after playing a flow\n"
                                 "  parlor tree --content MyList.json --device 320x568@2\n";

struct TreeOptions : BundleOptions {
    std::vector<std::string> flows; // and folders of them, or a list; empty: the extension is opened
    ReportOptions report;
};

/// Plays a flow and prints what the screen is made of then. The extension's debug lines go to standard error meanwhile.
CommandResult printTree(const Flow& flow, const PreparedBundle& bundle) {
    const OutputAside aside;
    bundle.openFor(flow);
    FlowPlayer player(flow, bundle.deviceFor(flow));
    Findings failures = player.play().failures;
    tell(failures);
    const std::optional<Failure> failure =
        aside.write(printableLines(describeTree(player.host().window(), TreeDetail::withSources)));
    return failure ? CommandResult(*failure) : failures;
}

CommandResult printTrees(const std::vector<NamedFlow>& flows, const PreparedBundle& bundle) {
    Findings findings;
    for (const NamedFlow& named : flows) {
        if (flows.size() > 1) {
            std::cout << printableLines(named.file) << ":" << std::endl;
        }
        tell(named.findings);
        const CommandResult result =
            named.flow ? resultIn(inOwnProcess([&] { return resultText(printTree(*named.flow, bundle)); }))
                       : named.findings;
        if (!result) {
            return result;
        }
        for (const Finding& finding : result.value()) {
            findings.push_back(finding);
            findings.back().path = finding.path.empty() ? named.file : finding.path; // a stop is the flow's
        }
    }
    return findings;
}

Result<std::vector<NamedFlow>> flowsToPlay(const TreeOptions& options) {
    if (options.flows.empty()) {
        return std::vector<NamedFlow>{{"", FlowComposer("- launchApp\n- waitForAnimationToEnd\n").flow(), {}}};
    }
    return readFlowsAt(options.flows);
}

CommandResult runTree(TreeOptions options) {
    if (const std::optional<Failure> failure = takeList(options.flows, options.content)) {
        return *failure;
    }
    return reporting({"tree", {}, {}}, options.report, [&](Report&) -> CommandResult {
        const Result<std::vector<NamedFlow>> flows = flowsToPlay(options);
        if (!flows) {
            return flows.failure();
        }
        return withBundle(options, devicesOf(options, flows.value()),
                          [&](const PreparedBundle& bundle) { return printTrees(flows.value(), bundle); });
    });
}

} // namespace

ParlorCommand addTreeCommand(CLI::App& app) {
    const auto options = std::make_shared<TreeOptions>();
    CLI::App* line = app.add_subcommand("tree", "Prints the view tree, with the place each view came from");
    line->add_option("flow", options->flows,
                     "Flows or folders of them to play first, or a content file (default: open the extension)")
        ->check(notEmpty)
        ->option_text("FLOW");
    addBundleOptions(*line, *options);
    addDeviceOption(*line, *options);
    addReportOptions(*line, options->report);
    line->footer(examples);
    return {line, [options] { return runTree(*options); }};
}
