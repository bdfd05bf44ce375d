#include "simulator/check/FindingsReport.h"
#include "simulator/conversation/ViewTree.h"
#include "simulator/flows/FlowPlayer.h"
#include "simulator/parlor/FlowComposer.h"
#include "simulator/parlor/PreparedBundle.h"

#include <CLI/CLI.hpp>

#include <iostream>

namespace {

constexpr const char* examples = "Examples:\n"
                                 "  parlor tree                                 after opening\n"
                                 "  parlor tree flows/friends.yaml              after playing a flow\n"
                                 "  parlor tree --content MyList.json --device 320x568@2\n";

struct TreeOptions : BundleOptions {
    std::vector<std::string> flows; // one at most; none: the extension is opened
};

/// The tree alone goes to standard output; the extension's debug lines go to standard error meanwhile.
CommandResult printTree(const Flow& flow, const PreparedBundle& bundle) {
    std::string tree;
    Findings failures;
    {
        const OutputAside aside;
        bundle.openFor(flow);
        FlowPlayer player(flow, bundle.deviceFor(flow));
        failures = player.play().failures;
        tell(failures);
        tree = describeTree(player.host().window(), TreeDetail::withSources);
    }
    if (!(std::cout << printableLines(tree) << std::flush)) {
        return Failure{"standard output cannot be written"};
    }
    return failures;
}

CommandResult runTree(const TreeOptions& options) {
    Result<std::vector<Flow>> flows = std::vector{FlowComposer("- launchApp\n- waitForAnimationToEnd\n").flow()};
    if (!options.flows.empty()) {
        flows = readFlowsToPlay(options.flows);
    }
    if (!flows) {
        return flows.failure();
    }
    const Flow& flow = flows.value().front();
    return withBundle(options, {deviceNameFor(options, flow)},
                      [&](const PreparedBundle& bundle) { return printTree(flow, bundle); });
}

} // namespace

ParlorCommand addTreeCommand(CLI::App& app) {
    const auto options = std::make_shared<TreeOptions>();
    CLI::App* line = app.add_subcommand("tree", "Prints the view tree, with the place each view came from");
    line->add_option("flow", options->flows, "A flow to play first (default: open the extension)")
        ->type_name("FLOW")
        ->expected(0, 1);
    addBundleOptions(*line, *options);
    addDeviceOption(*line, *options);
    line->footer(examples);
    return {line, [options] { return runTree(*options); }};
}
