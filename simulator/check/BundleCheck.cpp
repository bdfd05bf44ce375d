#include "simulator/check/BundleCheck.h"

#include "content/CurrentOption.h"
#include "platform/foundation/NSBundle.h"
#include "simulator/check/ContentCheck.h"
#include "simulator/check/InterfaceCheck.h"
#include "simulator/check/Rules.h"
#include "simulator/conversation/BundleSetup.h"

#include <algorithm>

namespace {

namespace fs = std::filesystem;

void append(Findings& all, const Findings& more) {
    all.insert(all.end(), more.begin(), more.end());
}

/// Fails when the file is `needed` and cannot be read.
std::optional<Failure> addContent(CurrentOption option, const std::optional<std::string>& needed,
                                  BundleFindings& findings) {
    const NSBundle& bundle = NSBundle::mainBundle();
    const std::string name = rawValue(option) + ".json";
    const auto file = bundle.URLForResource(rawValue(option), "json");
    if (!file) {
        findings.all.push_back(findingOf("content.file-missing", (bundle.bundlePath() / name).string(), std::nullopt,
                                         "there is no content file \"" + name + "\""));
        return std::nullopt;
    }
    ++findings.files;
    const Result<Findings> inFile = checkContent(*file);
    if (!inFile && needed == file) {
        return inFile.failure();
    }
    append(findings.all,
           inFile ? inFile.value()
                  : Findings{findingOf("content.unreadable", file->string(), std::nullopt, inFile.failure().what)});
    return std::nullopt;
}

/// Lists that nobody reads.
void addStrangers(BundleFindings& findings) {
    for (const fs::path& file : bundleFiles(NSBundle::mainBundle().bundlePath())) {
        if (file.extension() == ".json" && file.filename() != "known-findings.json") {
            append(findings.all, checkContentName(file, ContentPlace::bundle));
        }
    }
}

} // namespace

Result<BundleFindings> checkMainBundle(const std::optional<std::string>& needed) {
    const NSBundle& bundle = NSBundle::mainBundle();
    const std::optional<std::string> name = mainStoryboardName();
    const auto storyboard = name ? bundle.URLForResource(*name, "storyboard") : std::nullopt;
    if (!storyboard) {
        return Failure{bundle.bundlePath().string() + ": Info.plist names no storyboard that is there as " +
                       mainStoryboardKey};
    }
    InterfaceFindings inInterface = checkInterface(bundle, *storyboard);
    BundleFindings findings{std::move(inInterface.all), true, inInterface.files};
    findings.canLaunch = !hasErrors(findings.all);
    for (const CurrentOption option : contentLoadOrder()) {
        if (const std::optional<Failure> failure = addContent(option, needed, findings)) {
            return *failure;
        }
    }
    addStrangers(findings);
    tidy(findings.all);
    return findings;
}
