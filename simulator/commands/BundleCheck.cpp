#include "simulator/commands/BundleCheck.h"

#include "content/CurrentOption.h"
#include "platform/interface/InterfaceCheck.h"
#include "simulator/commands/ContentCheck.h"

BundleFindings checkBundleData() {
    const NSBundle& bundle = NSBundle::mainBundle();
    BundleFindings findings{checkBundle(bundle), true};
    findings.canLaunch = !hasErrors(findings.all);
    for (const CurrentOption option : contentLoadOrder()) {
        if (const auto file = bundle.URLForResource(rawValue(option), "json")) { // a missing one the extension tells
            const std::vector<Finding> inFile = checkContent(*file);
            findings.all.insert(findings.all.end(), inFile.begin(), inFile.end());
        }
    }
    return findings;
}
