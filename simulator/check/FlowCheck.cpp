#include "simulator/check/FlowCheck.h"

#include "platform/foundation/FileReading.h"
#include "platform/foundation/NSBundle.h"
#include "simulator/check/Rules.h"
#include "simulator/flows/FlowReader.h"

namespace {

namespace fs = std::filesystem;

std::vector<std::string> namesInBundle() {
    std::vector<std::string> names;
    std::error_code error;
    for (fs::directory_iterator item(NSBundle::mainBundle().bundlePath(), error);
         !error && item != fs::directory_iterator(); item.increment(error)) {
        names.push_back(item->path().filename().string());
    }
    return names;
}

/// The reader's warnings are about people.
void nameReaderRules(Findings& findings) {
    for (Finding& finding : findings) {
        finding.rule = finding.severity == Severity::error ? "flow.unreadable" : "flow.person";
    }
}

} // namespace

Findings checkFlowText(const std::string& text, const std::string& path) {
    Findings findings;
    const std::optional<Flow> flow = readFlow(text, path, findings);
    nameReaderRules(findings);
    if (!flow || !flow->scene.empty()) { // a scene has a bundle of its own
        return findings;
    }
    for (const ResourceOverride& replaced : flow->overrides) {
        std::error_code error;
        if (!fs::exists(NSBundle::mainBundle().bundlePath() / replaced.name, error)) {
            findings.push_back(findingOf("flow.resource", path, replaced.place,
                                         "the bundle has no resource '" + replaced.name + "'" +
                                             suggestionInQuotes(replaced.name, namesInBundle())));
        }
    }
    return findings;
}

Findings checkFlowFile(const fs::path& file) {
    const Result<std::string> text = readWholeFile(file);
    if (!text) {
        return {findingOf("flow.unreadable", file.string(), std::nullopt, text.failure().what)};
    }
    return checkFlowText(text.value(), file.string());
}
