#include "simulator/parlor/Report.h"

#include "platform/foundation/FileReading.h"
#include "platform/foundation/NSURL.h"
#include "simulator/check/FindingsReport.h"

#include <boost/json.hpp>

#include <algorithm>
#include <filesystem>

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

json::object findingJson(const Finding& finding) {
    json::object object{{"severity", finding.severity == Severity::error ? "error" : "warning"},
                        {"file", printableLines(finding.path)},
                        {"line", finding.place ? finding.place->line : 0},
                        {"column", finding.place ? finding.place->column : 0},
                        {"message", printableLines(finding.what)}};
    if (!finding.rule.empty()) {
        object["rule"] = finding.rule;
    }
    return object;
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

json::object resultJson(const FlowResult& result) {
    return {{"file", printableLines(result.file)},
            {"name", printableLines(result.name)},
            {"device", result.device},
            {"played", result.wasPlayed},
            {"passed", result.failures.empty()},
            {"events", arrayOf(result.events, eventJson)},
            {"debugLines", texts(result.debugLines)},
            {"links", arrayOf(result.links, linkJson)},
            {"styleRequests", arrayOf(result.styleRequests, styleRequestJson)},
            {"failures", arrayOf(result.failures, findingJson)}};
}

std::string quotedXML(const std::string& text) {
    std::string quoted = "\"";
    for (const char letter : printableLines(text)) {
        switch (letter) {
        case '"':
            quoted += "&quot;";
            break;
        case '&':
            quoted += "&amp;";
            break;
        case '<':
            quoted += "&lt;";
            break;
        case '\n':
            quoted += "&#10;";
            break;
        default:
            quoted += letter;
        }
    }
    return quoted + "\"";
}

/// One test: a flow, or everything around the flows.
std::string caseXML(const std::string& file, const std::string& name, const std::vector<std::string>& failures) {
    std::string text = "  <testcase classname=" + quotedXML(file) + " name=" + quotedXML(name) + ">\n";
    for (const std::string& failure : failures) {
        text += "    <failure message=" + quotedXML(failure) + "/>\n";
    }
    return text + "  </testcase>\n";
}

std::string junitText(const RunReport& report) {
    std::string cases;
    std::size_t failed = 0;
    for (const FlowResult& flow : report.flows) {
        std::vector<std::string> failures;
        for (const Finding& failure : flow.failures) {
            failures.push_back(failure.describe());
        }
        failed += failures.empty() ? 0 : 1;
        cases += caseXML(flow.file, flow.name, failures);
    }
    std::vector<std::string> around;
    for (const Finding& finding : report.findings) {
        if (finding.severity == Severity::error) {
            around.push_back(finding.describe());
        }
    }
    if (report.failure) {
        around.push_back(*report.failure);
    }
    failed += around.empty() ? 0 : 1;
    cases += caseXML("parlor run", "the bundle and the run itself", around);
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuite name=\"parlor run\" tests=\"" +
           std::to_string(report.flows.size() + 1) + "\" failures=\"" + std::to_string(failed) + "\">\n" + cases +
           "</testsuite>\n";
}

} // namespace

bool RunReport::passed() const {
    const auto hasPassed = [](const FlowResult& flow) { return flow.failures.empty(); };
    return !failure && !hasErrors(findings) && std::all_of(flows.begin(), flows.end(), hasPassed);
}

std::string reportText(const RunReport& report, ReportFormat format) {
    if (format == ReportFormat::junit) {
        return junitText(report);
    }
    json::value failure;
    if (report.failure) {
        failure = printableLines(*report.failure);
    }
    return json::serialize(json::object{{"report", "parlor run"},
                                        {"passed", report.passed()},
                                        {"failure", failure},
                                        {"findings", arrayOf(report.findings, findingJson)},
                                        {"flows", arrayOf(report.flows, resultJson)}}) +
           "\n";
}

std::optional<Failure> refusalOfReport(const std::string& path) {
    std::error_code error;
    if (path == "-" || !std::filesystem::is_regular_file(path, error)) {
        return std::nullopt; // what is no file can be written, or says by itself why not
    }
    const Result<std::string> text = readWholeFile(path);
    const auto begins = [&](const char* start) { return text.value().starts_with(start); };
    const bool isOurs = text && (text.value().empty() || begins("{\"report\":\"parlor run\"") ||
                                 text.value().find("<testsuite name=\"parlor run\"") < 100);
    return isOurs ? std::nullopt : std::optional(Failure{path + " exists and is no report; it is left alone"});
}
