#include "simulator/check/FlowCheck.h"

#include "platform/foundation/FileReading.h"
#include "platform/foundation/NSBundle.h"
#include "simulator/check/Rules.h"
#include "simulator/flows/FlowReader.h"

#include <algorithm>

namespace {

namespace fs = std::filesystem;

std::vector<std::string> namesInBundle() {
    std::vector<std::string> names;
    for (const fs::path& file : bundleFiles(NSBundle::mainBundle().bundlePath())) {
        names.push_back(file.filename().string());
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
    const std::vector<std::string> names = namesInBundle();
    for (const ResourceOverride& replaced : flow->overrides) {
        if (std::find(names.begin(), names.end(), replaced.name) == names.end()) {
            findings.push_back(findingOf("flow.resource", path, replaced.place,
                                         "the bundle has no resource '" + replaced.name + "'" +
                                             suggestionInQuotes(replaced.name, names)));
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
