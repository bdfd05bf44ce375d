#include "simulator/check/BundleCheck.h"

#include "content/CurrentOption.h"
#include "platform/foundation/NSBundle.h"
#include "simulator/check/ContentCheck.h"
#include "simulator/check/InterfaceCheck.h"
#include "simulator/conversation/BundleSetup.h"

Result<BundleFindings> checkMainBundle(const std::optional<std::string>& needed) {
    const NSBundle& bundle = NSBundle::mainBundle();
    const std::optional<std::string> name = mainStoryboardName();
    const auto storyboard = name ? bundle.URLForResource(*name, "storyboard") : std::nullopt;
    if (!storyboard) {
        return Failure{bundle.bundlePath().string() + ": Info.plist names no storyboard that is there as " +
                       mainStoryboardKey};
    }
    BundleFindings findings{checkInterface(bundle, *storyboard), true};
    findings.canLaunch = !hasErrors(findings.all);
    for (const CurrentOption option : contentLoadOrder()) {
        const auto file = bundle.URLForResource(rawValue(option), "json");
        const Result<Findings> inFile = file ? checkContent(*file) : Findings(); // a missing file the extension tells
        if (!inFile && needed == file) {
            return inFile.failure();
        }
        const Findings& told = inFile ? inFile.value() : Findings{inFile.failure().in(file->string())};
        findings.all.insert(findings.all.end(), told.begin(), told.end());
    }
    return findings;
}
