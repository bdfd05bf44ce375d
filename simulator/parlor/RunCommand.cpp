#include "simulator/flows/FlowPlayer.h"
#include "simulator/parlor/FlowComposer.h"
#include "simulator/parlor/PreparedBundle.h"
#include "simulator/parlor/Report.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>

namespace {

constexpr const char* examples =
    "Examples:\n"
    "  parlor run                                  the typical road\n"
    "  parlor run --content MyList.json            your list on screen, as that of \"Adult (18+)\"\n"
    "  parlor run --content Friends.json flows/friends.yaml\n"
    "                                              a file named after a group is shown for that group\n"
    "  parlor run flows --report report.json       every flow of a folder, with a report\n"
    "  parlor run flows/couple.yaml --device se    on the smallest phone\n"
    "\n"
    "Standard output carries the extension's debug lines; what happens is told on standard error.\n"
    "Exit status: 0 fine, 1 something failed or was found, 2 wrong usage or unreadable input.\n";

struct RunOptions : BundleOptions {
    std::vector<std::string> flows;    // files and folders; empty: the content file, or the typical road
    std::optional<std::string> report; // where to write what happened
    PictureSettings pictures;
    bool quiet = false;
};

/// What is played for somebody's own content file when no flow is named: the group that the file is shown for is chosen
/// and the first of its modes is tapped.
Flow contentFlow(const std::string& content) {
    const std::string group = groupFor(content);
    FlowComposer composer;
    composer.choose(group);
    composer.add("- takeScreenshot: content\n");
    composer.tapFirstMode();
    Flow flow = composer.flow();
    flow.file = content;
    flow.name = "Your content, as the list of " + group;
    return flow;
}

Result<std::vector<Flow>> flowsToPlay(const RunOptions& options) {
    if (options.flows.empty() && options.content) { // the typical road is about the lists that come with the extension
        return std::vector{contentFlow(*options.content)};
    }
    const std::vector<std::string> usual{besideProgram("flows/typical-road.yaml").string()};
    return readFlowsToPlay(options.flows.empty() ? usual : options.flows);
}

void printEvent(const Event& event) {
    char time[32];
    std::snprintf(time, sizeof time, "%7.3f s  ", static_cast<double>(event.time.count()) / 1000);
    std::cerr << time << event.text << std::endl;
}

FlowResult playOn(const PreparedBundle& bundle, const Flow& flow, const RunOptions& options) {
    const Device device = bundle.deviceFor(flow);
    const auto listener = [quiet = options.quiet](const Event& event) {
        if (!quiet || event.kind == "failure") {
            printEvent(event);
        }
    };
    bundle.openFor(flow);
    if (!options.quiet) {
        std::cerr << flow.name << " (" << flow.file << ", device " << device.name << ")" << std::endl;
    }
    return FlowPlayer(flow, device, listener, options.pictures).play();
}

std::optional<Failure> writeReport(const std::string& path, const std::vector<FlowResult>& results) {
    std::ofstream file(path, std::ios::binary);
    file << reportText(results);
    file.close();
    if (!file) {
        return Failure{"cannot write the report " + path};
    }
    std::cerr << "parlor: report written to " << path << '\n';
    return std::nullopt;
}

CommandResult playAll(const std::vector<Flow>& flows, const PreparedBundle& bundle, const RunOptions& options) {
    std::vector<FlowResult> results;
    Findings failures;
    std::size_t failed = 0;
    for (const Flow& flow : flows) {
        const FlowResult& result = results.emplace_back(playOn(bundle, flow, options));
        failures.insert(failures.end(), result.failures.begin(), result.failures.end());
        failed += result.failures.empty() ? 0 : 1;
    }
    if (!options.quiet || failed > 0) {
        std::cerr << "parlor: " << results.size() << " played, " << failed << " failed\n";
    }
    const std::optional<Failure> failure = options.report ? writeReport(*options.report, results) : std::nullopt;
    return failure ? CommandResult(*failure) : failures;
}

CommandResult runFlows(const RunOptions& options) {
    if (options.pictures.updateGoldens && std::getenv("CI") != nullptr) {
        return Failure{"golden pictures are not updated where CI is set in the environment"};
    }
    const Result<std::vector<Flow>> flows = flowsToPlay(options);
    if (!flows) {
        return flows.failure();
    }
    return withBundle(options, [&](const PreparedBundle& bundle) { return playAll(flows.value(), bundle, options); });
}

} // namespace

ParlorCommand addRunCommand(CLI::App& app) {
    const auto options = std::make_shared<RunOptions>();
    CLI::App* line = app.add_subcommand("run", "Plays flows without a display, in virtual time");
    line->add_option("flow", options->flows,
                     "Flow files, or folders of them (default: the typical road, or a look at the content file)")
        ->type_name("FLOW");
    addBundleOptions(*line, *options);
    addDeviceOption(*line, *options);
    line->add_option("--report", options->report, "Writes what happened to this file, as JSON")->type_name("FILE");
    line->add_option("--output", options->pictures.output, "Where pictures go (default: out)")->type_name("DIR");
    line->add_flag("--update-goldens", options->pictures.updateGoldens,
                   "Takes the golden pictures anew (never where CI is set)");
    line->add_flag("--quiet", options->quiet, "Tells failures only");
    line->footer(examples);
    return {line, [options] { return runFlows(*options); }};
}
