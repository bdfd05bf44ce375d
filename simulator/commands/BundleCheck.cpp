#include "simulator/commands/BundleCheck.h"

#include "content/CurrentOption.h"
#include "platform/foundation/NSBundle.h"
#include "platform/interface/InterfaceCheck.h"
#include "platform/interface/InterfaceDocument.h"
#include "simulator/commands/ContentCheck.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace {

/// A main storyboard from which the host could not make the extension's first controller.
std::optional<Finding> problemOfMainStoryboard(const NSBundle& bundle) {
    const auto name = bundle.objectForInfoDictionaryKeyPath({"NSExtension", "NSExtensionMainStoryboard"});
    const auto path = name ? bundle.URLForResource(*name, "storyboard") : std::nullopt;
    const LoadedDocument loaded = path ? InterfaceDocument::load(*path) : LoadedDocument();
    if (!loaded.document) {
        return std::nullopt; // told with the other documents
    }
    const std::string_view id = loaded.document->root().value("initialViewController");
    if (!id.empty() && loaded.document->sceneWith("id", id) != nullptr) {
        return std::nullopt;
    }
    return Finding{Severity::error, path->string(), std::nullopt, "the storyboard has no initial controller"};
}

} // namespace

BundleFindings checkBundleData() {
    const NSBundle& bundle = NSBundle::mainBundle();
    BundleFindings findings{checkBundle(bundle), true};
    if (std::optional<Finding> problem = problemOfMainStoryboard(bundle)) {
        findings.all.push_back(*std::move(problem));
    }
    findings.canLaunch = !hasErrors(findings.all);
    for (const CurrentOption option : contentLoadOrder()) {
        if (const auto file = bundle.URLForResource(rawValue(option), "json")) { // a missing one the extension tells
            const Findings inFile = checkContent(*file);
            findings.all.insert(findings.all.end(), inFile.begin(), inFile.end());
        }
    }
    return findings;
}
