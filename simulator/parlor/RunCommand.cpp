#include "platform/foundation/FatalErrorHandler.h"
#include "simulator/check/FindingsReport.h"
#include "simulator/flows/FlowPlayer.h"
#include "simulator/flows/FlowReader.h"
#include "simulator/parlor/FlowComposer.h"
#include "simulator/parlor/PreparedBundle.h"
#include "simulator/parlor/Report.h"
#include "simulator/parlor/ScreenLook.h"
#include "simulator/pictures/PictureFile.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <set>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

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
    std::optional<std::string> report; // where to write what happened; "-": standard output
    std::string format = "json";       // of the report
    PictureSettings pictures;
    bool updateGoldens = false;
    bool quiet = false;
};

/// A list among the flows is a content file.
std::optional<Failure> takeListFromFlows(RunOptions& options) {
    const auto isList = [](const std::string& path) { return fs::path(path).extension() == ".json"; };
    for (const std::string& path : options.flows) {
        if (isList(path) && options.content) {
            return Failure{"one list can be shown at a time: " + *options.content + " or " + path};
        }
        options.content = isList(path) ? path : options.content;
    }
    std::erase_if(options.flows, isList);
    if (!options.flows.empty() && (options.dark || options.style != "expanded")) {
        return Failure{"--dark and --style are for a list without a flow; a flow has setAppearance and setStyle"};
    }
    return std::nullopt;
}

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

FlowResult unplayed(const std::string& file, const std::string& name, const Findings& findings) {
    FlowResult result;
    result.file = file;
    result.name = name;
    result.failures = findings;
    result.wasPlayed = false;
    return result;
}

/// Plays all flows of one command line and reports what came of it, also when the extension stops the program.
class Run {
public:
    /// `output` is where a report for standard output goes; null when there is none.
    Run(const RunOptions& options, const OutputAside* output) : m_options(options), m_output(output) {
        setFatalErrorHandler([this](std::string_view line) { stopped(line); });
    }
    ~Run() { setFatalErrorHandler({}); }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    CommandResult perform() {
        CommandResult result = play();
        if (!result) {
            m_report.failure = result.failure().what;
        }
        const std::optional<Failure> unwritten = writeReport();
        return unwritten ? CommandResult(*unwritten) : result;
    }

private:
    CommandResult play() {
        const std::vector<Flow> flows = readFlows();
        if (flows.empty()) {
            return Failure{m_report.flows.empty() ? "there is no flow (*.yaml) to play"
                                                  : "nothing is played, as no flow can be read"};
        }
        const Result<PreparedBundle> bundle = prepareBundle(m_options);
        if (!bundle) {
            return bundle.failure();
        }
        m_report.findings = bundle.value().findings.all;
        tell(m_report.findings);
        if (!canShow(bundle.value(), m_options)) {
            m_report.failure = "nothing is played, as what is to be shown cannot be";
            std::cerr << "parlor: " << *m_report.failure << '\n';
            return Findings{{Severity::error, "", std::nullopt, *m_report.failure}};
        }
        m_look.emplace(m_options, devicesOf(flows), ScreenExtent::opening);
        for (const Flow& flow : flows) {
            playOn(bundle.value(), flow);
        }
        const Findings onScreen = m_look->tellNews();
        m_report.findings.insert(m_report.findings.end(), onScreen.begin(), onScreen.end());
        tellStaleGoldens();
        tellTotal();
        return allFindings();
    }

    /// Each once; scenes of their own are not the extension's screen.
    [[nodiscard]] std::vector<std::string> devicesOf(const std::vector<Flow>& flows) const {
        std::set<std::string> devices;
        for (const Flow& flow : flows) {
            if (flow.scene.empty()) {
                devices.insert(deviceNameFor(m_options, flow));
            }
        }
        return {devices.begin(), devices.end()};
    }

    /// Those that can be read; of the others there is a result already.
    std::vector<Flow> readFlows() {
        if (m_options.flows.empty() && m_options.content) { // the typical road is about the lists that come along
            return {contentFlow(m_options)};
        }
        std::vector<Flow> flows;
        const std::vector<std::string> usual{inTree("flows/typical-road.yaml").string()};
        for (const std::string& path : m_options.flows.empty() ? usual : m_options.flows) {
            for (const std::string& file : flowFilesAt(path)) {
                Findings findings;
                std::optional<Flow> flow = readFlowFile(file, findings);
                tell(findings);
                if (flow) {
                    flows.push_back(*std::move(flow));
                    m_readFindings.insert(m_readFindings.end(), findings.begin(), findings.end());
                } else {
                    add(unplayed(file, fs::path(file).stem().string(), findings));
                }
            }
        }
        return flows;
    }

    void playOn(const PreparedBundle& bundle, const Flow& flow) {
        const Device device = bundle.deviceFor(flow);
        if (!m_options.quiet) {
            std::cerr << printableLines(flow.name + " (" + flow.file) << ", device " << device.name << ")" << std::endl;
        }
        if (const Findings findings = bundle.check(flow); !findings.empty()) {
            tell(findings);
            add(unplayed(flow.file, flow.name, findings));
            return;
        }
        const auto listener = [quiet = m_options.quiet](const Event& event) {
            if (!quiet || event.kind == "failure") {
                printEvent(event);
            }
        };
        bundle.openFor(flow);
        FlowPlayer player(flow, device, listener, m_options.pictures);
        m_player = &player;
        add(player.play());
        m_player = nullptr;
    }

    /// A result and its line.
    void add(FlowResult result) {
        const std::size_t failures = result.failures.size();
        std::cerr << (failures == 0 ? "passed  " : "FAILED  ") << printableLines(result.file)
                  << (failures == 0      ? ""
                      : result.wasPlayed ? ": " + counted(failures, "failure")
                                         : ": not played, " + counted(failures, "mistake"))
                  << std::endl;
        m_report.flows.push_back(std::move(result));
    }

    void tellTotal() const {
        const auto count = [this](const auto& isCounted) {
            return std::count_if(m_report.flows.begin(), m_report.flows.end(), isCounted);
        };
        const auto played = count([](const FlowResult& flow) { return flow.wasPlayed; });
        const auto failed = count([](const FlowResult& flow) { return flow.wasPlayed && !flow.failures.empty(); });
        const auto unplayed = count([](const FlowResult& flow) { return !flow.wasPlayed; });
        std::cerr << "parlor: " << played << " played, " << failed << " failed";
        if (unplayed > 0) {
            std::cerr << ", " << unplayed << " not played";
        }
        std::cerr << std::endl;
    }

    /// Golden files in a folder of which all flows were played, and that none of them asked for.
    void tellStaleGoldens() {
        std::vector<std::string> asked;
        for (const FlowResult& flow : m_report.flows) {
            if (!flow.wasPlayed) {
                return; // nobody knows what it would have asked for
            }
            asked.insert(asked.end(), flow.goldens.begin(), flow.goldens.end());
        }
        for (const std::string& folder : m_options.flows) {
            std::error_code error;
            for (fs::directory_iterator item(folder, error); !error && item != fs::directory_iterator();
                 item.increment(error)) {
                const std::string file = item->path().string();
                if (isGolden(item->path()) && std::find(asked.begin(), asked.end(), file) == asked.end()) {
                    m_report.findings.push_back(
                        {Severity::warning, file, std::nullopt, "no flow asks for this golden file"});
                    tell({m_report.findings.back()});
                }
            }
        }
    }

    /// NAME-DEVICE.png, of a run on the flows' own devices.
    bool isGolden(const fs::path& file) const {
        const std::string stem = file.stem().string();
        const std::size_t dash = stem.rfind('-');
        return m_options.device.empty() && file.extension() == ".png" && dash != std::string::npos &&
               deviceNamed(stem.substr(dash + 1));
    }

    [[nodiscard]] Findings allFindings() const {
        Findings all = m_report.findings;
        all.insert(all.end(), m_readFindings.begin(), m_readFindings.end());
        for (const FlowResult& flow : m_report.flows) {
            all.insert(all.end(), flow.failures.begin(), flow.failures.end());
        }
        return all;
    }

    std::optional<Failure> writeReport() const {
        if (!m_options.report) {
            return std::nullopt;
        }
        const std::string text =
            reportText(m_report, m_options.format == "junit" ? ReportFormat::junit : ReportFormat::json);
        if (*m_options.report == "-") {
            return m_output->write(text);
        }
        std::optional<Failure> failure = writeWholeFile(text, *m_options.report);
        if (!failure) {
            std::cerr << "parlor: report written to " << *m_options.report << '\n';
        }
        return failure;
    }

    /// The program cannot go on: what came of it until now is reported, and the process ends as after any failure.
    void stopped(std::string_view line) {
        FlowResult result = m_player != nullptr ? m_player->result() : FlowResult{};
        const std::string what = "the extension stopped the program: " + std::string(line);
        if (m_player != nullptr) {
            result.failures.push_back(m_player->failureNow(what));
            tell({result.failures.back()});
            add(std::move(result));
        } else {
            m_report.failure = what;
        }
        m_look.reset(); // its files go
        tellTotal();
        const std::optional<Failure> unwritten = writeReport();
        std::cerr << (unwritten ? "parlor: " + unwritten->what + "\n" : "") << std::flush;
        _exit(unwritten ? 2 : 1);
    }

    const RunOptions& m_options;
    const OutputAside* m_output;
    RunReport m_report;
    std::optional<ScreenLook> m_look;
    Findings m_readFindings;        // warnings of flows that are played all the same
    FlowPlayer* m_player = nullptr; // while a flow is played
};

CommandResult runFlows(RunOptions options) {
    const bool isCI = std::getenv("CI") != nullptr;
    if (options.updateGoldens && isCI) {
        return Failure{"golden files are not renewed where CI is set in the environment"};
    }
    options.pictures.showsFailures = true;
    options.pictures.goldens = options.updateGoldens ? Goldens::renew : isCI ? Goldens::onlyRead : Goldens::compare;
    std::optional<Failure> failure = takeListFromFlows(options);
    if (options.report && !failure) {
        failure = refusalOfReport(*options.report);
    }
    if (failure) {
        return *failure;
    }
    std::optional<OutputAside> aside;
    if (options.report == "-") {
        aside.emplace();
    }
    return Run(options, aside ? &*aside : nullptr).perform();
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
        ->check(CLI::IsMember({"compact", "expanded"}))
        ->option_text("STYLE");
    line->add_option("--report", options->report, "Writes what happened to this file; - for standard output")
        ->check(notEmpty)
        ->option_text("FILE");
    line->add_option("--format", options->format, "Of the report: json (default) or junit")
        ->check(CLI::IsMember({"json", "junit"}))
        ->option_text("FORMAT");
    line->add_option("--output", options->pictures.output, "Where pictures go (default: out)")
        ->check(notEmpty)
        ->option_text("DIR");
    line->add_flag("--update-goldens", options->updateGoldens,
                   "Takes golden pictures and trees anew (never where CI is set)");
    line->add_flag("--quiet", options->quiet, "Tells failures, a line for each flow and the total only");
    line->footer(examples);
    return {line, [options] { return runFlows(*options); }};
}
