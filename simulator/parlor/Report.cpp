#include "simulator/parlor/Report.h"

#include "platform/foundation/FatalErrorHandler.h"
#include "platform/foundation/FileReading.h"
#include "platform/foundation/NSURL.h"
#include "simulator/check/FindingsReport.h"
#include "simulator/pictures/PictureFile.h"

#include <CLI/CLI.hpp>
#include <boost/json.hpp>

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <unistd.h>

namespace {

namespace json = boost::json;

json::object eventJson(const Event& event) {
    return {{"ms", event.time.count()}, {"kind", event.kind}, {"text", printableLines(event.text)}};
}

json::object linkJson(const ConversationHost::OpenedLink& link) {
    json::array items;
    for (const NSURLQueryItem& item : NSURLComponents::componentsWithURL(link.url).queryItems) {
        items.push_back({{"name", item.name}, {"value", item.value ? json::value(*item.value) : json::value()}});
    }
    return {{"ms", link.time.count()}, {"url", link.url.absoluteString()}, {"items", std::move(items)}};
}

json::object styleRequestJson(const ConversationHost::StyleRequest& request) {
    return {{"ms", request.time.count()}, {"style", nameOf(request.style)}, {"changed", request.changed}};
}

json::array texts(const std::vector<std::string>& lines) {
    json::array array;
    for (const std::string& line : lines) {
        array.emplace_back(printableLines(line));
    }
    return array;
}

template <class T>
json::array arrayOf(const std::vector<T>& values, json::object (*convert)(const T&)) {
    json::array array;
    for (const T& value : values) {
        array.push_back(convert(value));
    }
    return array;
}

/// One test: a flow, or everything around the flows.
std::string caseXML(const std::string& file, const std::string& name, const std::vector<std::string>& failures) {
    std::string text = "  <testcase classname=" + quotedXML(file) + " name=" + quotedXML(name) + ">\n";
    for (const std::string& failure : failures) {
        text += "    <failure message=" + quotedXML(failure) + "/>\n";
    }
    return text + "  </testcase>\n";
}

/// The errors among them, as lines.
std::vector<std::string> errorsOf(const Findings& findings) {
    std::vector<std::string> lines;
    for (const Finding& finding : findings) {
        if (finding.severity == Severity::error) {
            lines.push_back(finding.describe());
        }
    }
    return lines;
}

std::string textAt(const json::object& object, const char* key) {
    const json::value* value = object.if_contains(key);
    return value != nullptr && value->is_string() ? std::string(value->get_string()) : "";
}

bool hasPassed(const json::object& flow) {
    return flow.at("passed").get_bool();
}

std::optional<Failure> write(const Report& report, const ReportOptions& options, const OutputAside* output) {
    if (!options.file) {
        return std::nullopt;
    }
    const std::string text = options.format == "junit" ? report.junit() : report.json();
    if (output != nullptr) {
        return output->write(text);
    }
    std::optional<Failure> failure = writeWholeFile(text, *options.file);
    if (!failure) {
        std::cerr << "parlor: report written to " << *options.file << '\n';
    }
    return failure;
}

/// The program cannot go on: what came of it until now is reported, and the process ends as after any failure.
[[noreturn]] void endStopped(Report& report, const ReportOptions& options, const OutputAside* output,
                             std::string_view line) {
    report.failure = "the extension stopped the program: " + std::string(line);
    const std::optional<Failure> unwritten = write(report, options, output);
    std::cerr << (unwritten ? "parlor: " + unwritten->what + "\n" : "") << std::flush;
    _exit(unwritten ? 2 : 1);
}

} // namespace

json::array findingsReport(const Findings& findings) {
    json::array array;
    for (const Finding& finding : findings) {
        json::object object{{"severity", finding.severity == Severity::error ? "error" : "warning"},
                            {"file", printableLines(finding.path)},
                            {"line", finding.place ? finding.place->line : 0},
                            {"column", finding.place ? finding.place->column : 0},
                            {"message", printableLines(finding.what)}};
        if (!finding.rule.empty()) {
            object["rule"] = finding.rule;
        }
        array.push_back(std::move(object));
    }
    return array;
}

Findings findingsIn(const json::array& report) {
    Findings findings;
    for (const json::value& value : report) {
        const json::object& object = value.as_object();
        const TextPlace place{object.at("line").to_number<int>(), object.at("column").to_number<int>()};
        findings.push_back({textAt(object, "severity") == "error" ? Severity::error : Severity::warning,
                            textAt(object, "file"), place.line > 0 ? std::optional(place) : std::nullopt,
                            textAt(object, "message"), textAt(object, "rule")});
    }
    return findings;
}

std::string resultText(const CommandResult& result) {
    return json::serialize(result ? json::value(findingsReport(result.value())) : json::value(result.failure().what));
}

CommandResult resultIn(const OwnOutcome& outcome) {
    boost::system::error_code error;
    const json::value result = json::parse(outcome.text, error);
    if (error) {
        return Findings{{Severity::error, "", std::nullopt, outcome.problem}};
    }
    const bool isGood = result.is_array() && outcome.problem.empty();
    return isGood ? CommandResult(findingsIn(result.get_array()))
                  : Failure{result.is_array() ? outcome.problem : std::string(result.as_string())};
}

json::object flowReport(const FlowResult& result) {
    return {{"file", printableLines(result.file)},
            {"name", printableLines(result.name)},
            {"device", result.device},
            {"played", result.wasPlayed},
            {"passed", result.failures.empty()},
            {"events", arrayOf(result.events, eventJson)},
            {"debugLines", texts(result.debugLines)},
            {"links", arrayOf(result.links, linkJson)},
            {"styleRequests", arrayOf(result.styleRequests, styleRequestJson)},
            {"goldens", texts(result.goldens)},
            {"failures", findingsReport(result.failures)}};
}

bool Report::passed() const {
    return !failure && !hasErrors(findings) && std::all_of(flows.begin(), flows.end(), hasPassed);
}

std::string Report::json() const {
    json::value reason;
    if (failure) {
        reason = printableLines(*failure);
    }
    return json::serialize(json::object{{"report", "parlor " + command},
                                        {"passed", passed()},
                                        {"failure", reason},
                                        {"findings", findingsReport(findings)},
                                        {"flows", json::array(flows.begin(), flows.end())}}) +
           "\n";
}

std::string Report::junit() const {
    std::string cases;
    for (const json::object& flow : flows) {
        cases +=
            caseXML(textAt(flow, "file"), textAt(flow, "name"), errorsOf(findingsIn(flow.at("failures").get_array())));
    }
    std::vector<std::string> around = errorsOf(findings);
    if (failure) {
        around.push_back(*failure);
    }
    cases += caseXML("parlor " + command, "the bundle and the run itself", around);
    const auto failed = std::count_if(flows.begin(), flows.end(), std::not_fn(hasPassed)) + (around.empty() ? 0 : 1);
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuite name=\"parlor " + command + "\" tests=\"" +
           std::to_string(flows.size() + 1) + "\" failures=\"" + std::to_string(failed) + "\">\n" + cases +
           "</testsuite>\n";
}

std::optional<Failure> refusalOfReport(const std::string& path) {
    std::error_code error;
    if (path == "-" || !std::filesystem::is_regular_file(path, error)) {
        return std::nullopt; // what is no file can be written, or says by itself why not
    }
    const Result<std::string> text = readWholeFile(path);
    const bool isOurs = text && (text.value().empty() || text.value().starts_with("{\"report\":\"parlor ") ||
                                 text.value().find("<testsuite name=\"parlor ") < 100);
    return isOurs ? std::nullopt : std::optional(Failure{path + " exists and is no report; it is left alone"});
}

void addReportOptions(CLI::App& command, ReportOptions& options) {
    command.add_option("--report", options.file, "Writes what came of it to this file; - for standard output")
        ->check(notEmpty)
        ->option_text("FILE");
    command.add_option("--format", options.format, "Of the report: json (default) or junit")
        ->check(oneOf({"json", "junit"}))
        ->option_text("FORMAT");
}

CommandResult reporting(Report report, const ReportOptions& options,
                        const std::function<CommandResult(Report&)>& work) {
    if (const auto refusal = options.file ? refusalOfReport(*options.file) : std::nullopt) {
        return *refusal;
    }
    std::optional<OutputAside> aside;
    if (options.file == "-") {
        aside.emplace();
    }
    const OutputAside* output = aside ? &*aside : nullptr;
    setFatalErrorHandler([&](std::string_view line) { endStopped(report, options, output, line); });
    CommandResult result = work(report);
    setFatalErrorHandler([](std::string_view) { _exit(1); });
    if (result) {
        report.findings.insert(report.findings.end(), result.value().begin(), result.value().end());
    } else {
        report.failure = result.failure().what;
    }
    if (const std::optional<Failure> unwritten = write(report, options, output)) {
        return *unwritten;
    }
    if (result && !report.passed()) {
        return Findings{{Severity::error, "", std::nullopt, "not everything has passed"}};
    }
    return result;
}
