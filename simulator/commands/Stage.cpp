#include "simulator/commands/Stage.h"

#include "content/CurrentOption.h"
#include "platform/foundation/FileReading.h"
#include "simulator/commands/BundleCheck.h"
#include "simulator/conversation/ExtensionBundle.h"

#include <iostream>

namespace {

/// A content file takes the place of the list it is named after, or of the one that is shown first.
std::string resourceFor(const std::filesystem::path& content) {
    const bool named = currentOptionFromRawValue(content.stem().string()).has_value();
    return (named ? content.stem().string() : rawValue(CurrentOption::Adult_18_Plus)) + ".json";
}

std::nullopt_t refuse(const std::string& why, ExitStatus& status) {
    std::cerr << "parlor: " << why << '\n';
    status = exitUsage;
    return std::nullopt;
}

} // namespace

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
        return refuse(device.error(), status);
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
            return refuse(text.error(), status);
        }
        stage.overrides.push_back({resourceFor(*options.content), options.content});
    }
    openExtensionBundle(stage.bundle, stage.overrides);
    const BundleFindings findings = checkBundleData();
    for (const Finding& finding : findings.all) {
        std::cerr << finding.describe() << '\n';
    }
    status = hasErrors(findings.all) ? exitFailed : exitFine;
    return findings.canLaunch ? std::optional(std::move(stage)) : std::nullopt;
}
