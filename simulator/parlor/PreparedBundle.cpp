#include "simulator/parlor/PreparedBundle.h"

#include "content/DropdownRows.h"

#include <CLI/CLI.hpp>

#include <algorithm>

namespace fs = std::filesystem;

void addBundleOptions(CLI::App& command, BundleOptions& options) {
    command.add_option("--bundle", options.bundle, "The extension's bundle (default: the one beside this program)")
        ->type_name("DIR");
    command
        .add_option("--content", options.content,
                    "Shows this content file for the group it is named after, or else for \"Adult (18+)\"")
        ->type_name("FILE");
    command
        .add_option("--text-size", options.textSize,
                    "The reader's text size, from xSmall over large (default) to xxxLarge, accessibility1 to 3")
        ->check(CLI::IsMember(textSizeNames()))
        ->option_text("SIZE");
    command.add_flag("--right-to-left", options.rightToLeft, "On a phone whose language runs from right to left");
}

void addDeviceOption(CLI::App& command, BundleOptions& options) {
    command
        .add_option("--device", options.device,
                    "se, 8, 8plus, 15, 15max, or a size such as 390x844@3 (default: the flow's own, or 15)")
        ->type_name("NAME");
}

fs::path besideProgram(const std::string& name) {
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    fs::path folder = program.parent_path();
    while (!fs::exists(folder / name, error) && folder.has_relative_path()) {
        folder = folder.parent_path();
    }
    return folder / name;
}

std::string groupFor(const fs::path& content) {
    const std::vector<std::string> groups = playerGroupTitles();
    const auto named = std::find(groups.begin(), groups.end(), content.stem().string());
    return named != groups.end() ? *named : groups.front();
}

std::optional<Failure> PreparedBundle::fitTo(const BundleOptions& options) {
    if (!options.device.empty()) {
        const Result<Device> named = deviceNamed(options.device);
        if (!named) {
            return named.failure();
        }
        device = named.value();
    }
    textSize = textSizeNamed(options.textSize);
    rightToLeft = options.rightToLeft;
    if (options.content) {
        overrides = {{groupFor(*options.content) + ".json", options.content}};
    }
    return std::nullopt;
}

void PreparedBundle::openFor(const Flow& flow) const {
    std::vector<ResourceOverride> all = overrides;
    all.insert(all.end(), flow.overrides.begin(), flow.overrides.end());
    openExtensionBundle(flow.scene.empty() ? folder : besideProgram("Canvas.appex"), all);
}

Device PreparedBundle::deviceFor(const Flow& flow) const {
    Device shown = device ? *device : deviceNamed(flow.device.empty() ? "15" : flow.device).value();
    shown.textSize = textSize;
    if (rightToLeft || flow.rightToLeft) {
        shown.direction = UIUserInterfaceLayoutDirection::rightToLeft;
    }
    return shown;
}

Result<PreparedBundle> prepareBundle(const BundleOptions& options) {
    PreparedBundle bundle;
    if (const std::optional<Failure> failure = bundle.fitTo(options)) {
        return *failure;
    }
    bundle.folder = options.bundle.empty() ? besideProgram("TruthsAndDares.appex") : options.bundle;
    std::error_code error;
    if (!fs::exists(bundle.folder / "Info.plist", error)) {
        return Failure{bundle.folder.string() + " is no extension bundle: it has no Info.plist"};
    }
    openExtensionBundle(bundle.folder, bundle.overrides);
    Result<BundleFindings> findings = checkMainBundle(options.content);
    if (!findings) {
        return findings.failure();
    }
    bundle.findings = std::move(findings.value());
    return bundle;
}

CommandResult withBundle(const BundleOptions& options, const std::function<CommandResult(const PreparedBundle&)>& use) {
    const Result<PreparedBundle> bundle = prepareBundle(options);
    if (!bundle) {
        return bundle.failure();
    }
    Findings findings = bundle.value().findings.all;
    tell(findings);
    if (!bundle.value().findings.canLaunch) {
        return findings;
    }
    const CommandResult result = use(bundle.value());
    if (!result) {
        return result;
    }
    findings.insert(findings.end(), result.value().begin(), result.value().end());
    return findings;
}
