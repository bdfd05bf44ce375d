#include "platform/foundation/FatalErrorHandler.h"
#include "simulator/check/FindingsReport.h"
#include "simulator/flows/FlowPlayer.h"
#include "simulator/parlor/FlowComposer.h"
#include "simulator/parlor/OwnProcess.h"
#include "simulator/parlor/PreparedBundle.h"
#include "simulator/parlor/Report.h"

#include <CLI/CLI.hpp>
#include <boost/json.hpp>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <set>

namespace {

namespace fs = std::filesystem;
namespace json = boost::json;

using Paths = std::vector<std::string>;

constexpr const char* examples =
    "Examples:\n"
    "  parlor run                                  the typical road\n"
    "  parlor run my-list.json                     your list on screen, as that of \"Adult (18+)\"\n"
    "  parlor run --content my-list.json --group Family --dark\n"
    "  parlor run --content Friends.json flows/friends.yaml\n"
    "                                              a file named after a group is shown for that group\n"
    "  parlor run flows --report report.json       every flow of a folder, with a report\n"
    "  parlor run flows/couple.yaml --device se    on the smallest phone\n"
    "\n"
    "Standard output carries the extension's debug lines; what happens is told on standard error.\n"
    "Exit status: 0 fine, 1 something failed or was found, 2 wrong usage or unreadable input.\n";

struct RunOptions : BundleOptions {
    std::vector<std::string> flows; // files and folders; empty: the content file, or the typical road
    bool dark = false;              // these two are for the content file that is shown without a flow
    std::string style = "expanded";
    ReportOptions report;
    PictureSettings pictures;
    bool updateGoldens = false;
    bool quiet = false;
};

/// What is played for somebody's own content file when no flow is named: the group that the file is shown for is chosen
/// and the first of its modes is tapped.
Flow contentFlow(const RunOptions& options) {
    const std::string group = options.group.value_or(groupFor(*options.content));
    FlowComposer composer;
    composer.choose(group);
    if (options.dark) {
        composer.add("- setAppearance: dark\n");
    }
    composer.add("- setStyle: " + options.style + "\n- takeScreenshot: content\n");
    composer.tapFirstMode();
    Flow flow = composer.flow();
    flow.file = *options.content;
    flow.name = "Your content, as the list of " + group;
    return flow;
}

void printEvent(const Event& event) {
    char time[32];
    std::snprintf(time, sizeof time, "%7.3f s  ", static_cast<double>(event.time.count()) / 1000);
    std::cerr << time << printableLines(event.text) << std::endl;
}

std::string counted(std::size_t count, const std::string& noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

/// The typical road is about the lists that come along.
Result<std::vector<NamedFlow>> flowsToPlay(const RunOptions& options) {
    if (options.flows.empty() && options.content) {
        return std::vector<NamedFlow>{{*options.content, contentFlow(options), {}}};
    }
    const std::vector<std::string> usual{inTree("flows/typical-road.yaml").string()};
    return readFlowsAt(options.flows.empty() ? usual : options.flows);
}

/// What came of a flow that has nothing to tell but this.
FlowResult failed(const std::string& file, const std::string& name, const Findings& failures) {
    FlowResult result;
    result.file = file;
    result.name = name;
    result.failures = failures;
    return result;
}

json::object notPlayed(const std::string& file, const std::string& name, const Findings& findings) {
    FlowResult result = failed(file, name, findings);
    result.wasPlayed = false;
    return flowReport(result);
}

/// Plays a flow, in a process of its own, and gives its part of the report, also when the extension stops the program.
std::string play(const Flow& flow, const PreparedBundle& bundle, const RunOptions& options) {
    std::optional<FlowPlayer> player;
    setFatalErrorHandler([&](std::string_view line) {
        const std::string what = "the extension stopped the program: " + std::string(line);
        FlowResult result = player ? player->result() : failed(flow.file, flow.name, {});
        result.failures.push_back(player ? player->failureNow(what) : Failure{what}.in(flow.file));
        tell({result.failures.back()});
        endOwnProcess(json::serialize(flowReport(result)));
    });
    bundle.openFor(flow);
    const auto listener = [quiet = options.quiet](const Event& event) {
        if (!quiet || event.kind == "failure") {
            printEvent(event);
        }
    };
    player.emplace(flow, bundle.deviceFor(flow), listener, options.pictures);
    return json::serialize(flowReport(player->play()));
}

/// A flow's part of the report, once it has been played. One that crashes the program has failed.
json::object played(const NamedFlow& named, const PreparedBundle& bundle, const RunOptions& options, Report& report) {
    const std::string& file = named.file;
    if (!named.flow) {
        return notPlayed(file, fs::path(file).stem().string(), named.findings);
    }
    const Flow& flow = *named.flow;
    if (!options.quiet) {
        std::cerr << printableLines(flow.name + " (" + file) << ", device " << bundle.deviceFor(flow).name << ")\n";
    }
    if (const Findings findings = bundle.check(flow); !findings.empty()) {
        tell(findings);
        return notPlayed(file, flow.name, findings);
    }
    const OwnOutcome outcome = inOwnProcess([&] { return play(flow, bundle, options); });
    boost::system::error_code error;
    const json::value result = json::parse(outcome.text, error);
    if (!error && result.is_object()) {
        report.failure = outcome.problem.empty() ? report.failure : outcome.problem;
        return result.get_object();
    }
    const Findings crash{Failure{outcome.problem}.in(file)};
    tell(crash);
    return flowReport(failed(file, flow.name, crash));
}

void tellResult(const json::object& flow) {
    const std::size_t failures = flow.at("failures").get_array().size();
    std::cerr << (failures == 0 ? "passed  " : "FAILED  ") << std::string(flow.at("file").get_string())
              << (failures == 0                  ? ""
                  : flow.at("played").get_bool() ? ": " + counted(failures, "failure")
                                                 : ": not played, " + counted(failures, "mistake"))
              << std::endl;
}

void tellTotal(const Report& report) {
    const auto count = [&](bool wasPlayed, bool hasPassed) {
        return std::count_if(report.flows.begin(), report.flows.end(), [=](const json::object& flow) {
            return flow.at("played").get_bool() == wasPlayed && flow.at("passed").get_bool() == hasPassed;
        });
    };
    const auto failed = count(true, false);
    const auto notPlayed = count(false, false);
    std::cerr << "parlor: " << count(true, true) + failed << " played, " << failed << " failed"
              << (notPlayed > 0 ? ", " + std::to_string(notPlayed) + " not played" : "") << std::endl;
}

/// START-DEVICE.png or .txt.
bool isGolden(const fs::path& file) {
    const std::string stem = file.stem().string();
    const std::size_t dash = stem.rfind('-');
    return (file.extension() == ".png" || file.extension() == ".txt") && dash != std::string::npos &&
           deviceNamed(stem.substr(dash + 1));
}

/// Golden files in the folders that were played, on the flows' own devices, and that none of the flows asked for. When
/// one has failed, nobody knows what it would have asked for.
Findings staleGoldens(const RunOptions& options, const Report& report) {
    std::set<fs::path> asked;
    for (const json::object& flow : report.flows) {
        for (const json::value& golden : flow.at("goldens").get_array()) {
            asked.insert(fs::path(std::string(golden.get_string())).lexically_normal());
        }
    }
    Findings stale;
    for (const std::string& folder : report.passed() && options.device.empty() ? options.flows : Paths()) {
        std::error_code error;
        const fs::recursive_directory_iterator end;
        for (fs::recursive_directory_iterator item(folder, error); !error && item != end; item.increment(error)) {
            if (isGolden(item->path()) && !asked.contains(item->path().lexically_normal())) {
                stale.push_back(Failure{"no flow asks for this golden file"}.in(item->path(), Severity::warning));
            }
        }
    }
    tell(stale);
    return stale;
}

/// The findings are those of what stands around the flows.
CommandResult playOn(const PreparedBundle& bundle, const std::vector<NamedFlow>& flows, const RunOptions& options,
                     Report& report) {
    Findings findings;
    for (const NamedFlow& named : flows) {
        tell(named.findings);
        report.flows.push_back(played(named, bundle, options, report));
        tellResult(report.flows.back());
        if (named.flow) { // else they are the flow's failures
            findings.insert(findings.end(), named.findings.begin(), named.findings.end());
        }
    }
    const Findings stale = staleGoldens(options, report);
    findings.insert(findings.end(), stale.begin(), stale.end());
    tellTotal(report);
    return report.failure ? CommandResult(Failure{*report.failure}) : findings;
}

CommandResult playAll(const RunOptions& options, Report& report) {
    const Result<std::vector<NamedFlow>> read = flowsToPlay(options);
    if (!read) {
        return read.failure();
    }
    const std::vector<NamedFlow>& flows = read.value();
    const bool isAny = std::any_of(flows.begin(), flows.end(), [](const NamedFlow& named) { return !!named.flow; });
    const CommandResult result = withBundle(options, devicesOf(options, flows), [&](const PreparedBundle& bundle) {
        return playOn(bundle, flows, options, report);
    });
    return isAny ? result : Failure{"nothing is played, as no flow can be read"};
}

CommandResult runFlows(RunOptions options) {
    const bool isCI = std::getenv("CI") != nullptr;
    if (options.updateGoldens && isCI) {
        return Failure{"golden files are not renewed where CI is set in the environment"};
    }
    options.pictures.showsFailures = true;
    options.pictures.goldens = options.updateGoldens ? Goldens::renew : isCI ? Goldens::onlyRead : Goldens::compare;
    if (const std::optional<Failure> failure = takeList(options.flows, options.content)) {
        return *failure;
    }
    if (options.group && !options.content) {
        return Failure{"--group says for which group a list is shown, and no list is named"};
    }
    const bool showsList = options.content && options.flows.empty();
    if (!showsList && (options.dark || options.style != "expanded")) {
        return Failure{"--dark and --style are for a list without a flow; a flow has setAppearance and setStyle"};
    }
    return reporting({"run", {}, {}}, options.report, [&](Report& report) { return playAll(options, report); });
}

} // namespace

ParlorCommand addRunCommand(CLI::App& app) {
    const auto options = std::make_shared<RunOptions>();
    CLI::App* line = app.add_subcommand("run", "Plays flows without a display, in virtual time");
    line->add_option("flow", options->flows,
                     "Flow files or folders of them, or a content file (default: the typical road)")
        ->check(notEmpty)
        ->option_text("FLOW");
    addBundleOptions(*line, *options);
    addDeviceOption(*line, *options);
    addGroupOption(*line, *options);
    line->add_flag("--dark", options->dark, "Shows the content file in the dark appearance");
    line->add_option("--style", options->style, "Shows the content file compact or expanded (default)")
        ->check(oneOf({"compact", "expanded"}))
        ->option_text("STYLE");
    addReportOptions(*line, options->report);
    line->add_option("--output", options->pictures.output, "Where pictures go (default: out)")
        ->check(notEmpty)
        ->option_text("DIR");
    line->add_flag("--update-goldens", options->updateGoldens,
                   "Takes golden pictures and trees anew (never where CI is set)");
    line->add_flag("--quiet", options->quiet, "Tells failures, a line for each flow and the total only");
    line->footer(examples);
    return {line, [options] { return runFlows(*options); }};
}
