#include "simulator/commands/Stage.h"

#include "content/DropdownRows.h"
#include "platform/foundation/FileReading.h"
#include "platform/foundation/NSBundle.h"
#include "simulator/commands/BundleCheck.h"
#include "simulator/conversation/ExtensionBundle.h"

#include <algorithm>
#include <iostream>

namespace {

std::optional<std::filesystem::path> mainStoryboard() {
    const NSBundle& bundle = NSBundle::mainBundle();
    const auto name = bundle.objectForInfoDictionaryKeyPath({"NSExtension", "NSExtensionMainStoryboard"});
    return name ? bundle.URLForResource(*name, "storyboard") : std::nullopt;
}

std::nullopt_t refuse(const std::string& why, ExitStatus& status) {
    std::cerr << "parlor: " << why << '\n';
    status = exitUsage;
    return std::nullopt;
}

} // namespace

std::string groupFor(const std::filesystem::path& content) {
    const std::vector<std::string> groups = playerGroupTitles();
    const auto named = std::find(groups.begin(), groups.end(), content.stem().string());
    return named != groups.end() ? *named : groups.front();
}

Device setStage(const Stage& stage, const Flow& flow) {
    std::vector<ResourceOverride> overrides = stage.overrides;
    overrides.insert(overrides.end(), flow.overrides.begin(), flow.overrides.end());
    openExtensionBundle(flow.scene.empty() ? stage.bundle : besideProgram("Canvas.appex"), overrides);
    return stage.deviceIsAsked || flow.device.empty() ? stage.device : deviceNamed(flow.device).value();
}

std::optional<Stage> prepareStage(const RunOptions& options, ExitStatus& status) {
    const bool deviceIsAsked = !options.device.empty();
    const Result<Device> device = deviceNamed(deviceIsAsked ? options.device : "15");
    if (!device) {
        return refuse(device.failure().what, status);
    }
    Stage stage{options.bundle.empty() ? besideProgram("TruthsAndDares.appex") : options.bundle,
                device.value(),
                deviceIsAsked,
                {}};
    std::error_code error;
    if (!std::filesystem::exists(stage.bundle / "Info.plist", error)) {
        return refuse(stage.bundle.string() + " is no extension bundle: it has no Info.plist", status);
    }
    if (options.content) {
        if (const Result<std::string> text = readWholeFile(*options.content); !text) {
            return refuse(text.failure().what, status);
        }
        stage.overrides.push_back({groupFor(*options.content) + ".json", options.content});
    }
    openExtensionBundle(stage.bundle, stage.overrides);
    if (!mainStoryboard()) {
        return refuse(stage.bundle.string() + ": Info.plist names no storyboard that is there as NSExtension, " +
                          "NSExtensionMainStoryboard",
                      status);
    }
    const BundleFindings findings = checkBundleData();
    for (const Finding& finding : findings.all) {
        std::cerr << finding.describe() << '\n';
    }
    status = hasErrors(findings.all) ? exitFailed : exitFine;
    return findings.canLaunch ? std::optional(std::move(stage)) : std::nullopt;
}
