#include "simulator/parlor/PreparedBundle.h"

#include "content/DropdownRows.h"
#include "content/ModeListDecoder.h"
#include "platform/foundation/FileReading.h"
#include "platform/foundation/Nearest.h"
#include "simulator/parlor/ScreenLook.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <set>

namespace fs = std::filesystem;

namespace {

constexpr const char* usualDevice = "15";

} // namespace

void addBundleOptions(CLI::App& command, BundleOptions& options, ContentWord content) {
    command
        .add_option("--bundle", options.bundle,
                    "The extension's bundle, or its sources (default: resources/ of the tree)")
        ->check(notEmpty)
        ->option_text("DIR");
    command
        .add_option(content == ContentWord::alone ? "list,--content" : "--content", options.content,
                    "Shows this content file for the group it is named after, or else for \"Adult (18+)\"")
        ->check(notEmpty)
        ->option_text("FILE");
    command
        .add_option("--text-size", options.textSize,
                    "The reader's text size, from xSmall over large (default) to xxxLarge, accessibility1 to 3")
        ->check(oneOf(textSizeNames()))
        ->option_text("SIZE");
    command.add_flag("--right-to-left", options.rightToLeft, "On a phone whose language runs from right to left");
}

void addDeviceOption(CLI::App& command, BundleOptions& options) {
    command
        .add_option("--device", options.device,
                    "se, 8, 8plus, 15, 15max, or a size such as 390x844@3 (default: the flow's own, or 15)")
        ->check(notEmpty)
        ->option_text("NAME");
}

void addGroupOption(CLI::App& command, BundleOptions& options) {
    command.add_option("--group", options.group, "Adult (18+), Friends, Couple or Family; --content is shown for it")
        ->check(oneOf(playerGroupTitles()))
        ->option_text("NAME");
}

fs::path inTree(const std::string& name) {
    std::error_code error;
    const fs::path path = fs::path(PARLOR_TREE) / name;
    const fs::path relative = path.lexically_relative(fs::current_path(error));
    return relative.empty() || relative.native().size() > path.native().size() ? path : relative;
}

fs::path usualBundle() {
    std::error_code error;
    const fs::path sources = inTree("resources");
    return fs::exists(sources / "Info.plist", error) ? sources : besideProgram("TruthsAndDares.appex");
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
        overrides = {{options.group.value_or(groupFor(*options.content)) + ".json", options.content}};
    }
    return std::nullopt;
}

void PreparedBundle::openFor(const Flow& flow) const {
    std::vector<ResourceOverride> all = overrides;
    if (!flow.scene.empty()) { // it borrows the extension's images
        all.push_back({"Assets.xcassets", (folder / "Assets.xcassets").string()});
    }
    all.insert(all.end(), flow.overrides.begin(), flow.overrides.end());
    openExtensionBundle(flow.scene.empty() ? folder : inTree("simulator/scenes"), all);
}

Findings PreparedBundle::check(const Flow& flow) const {
    std::vector<std::string> names;
    for (const fs::path& file : bundleFiles(folder)) {
        names.push_back(file.filename().string());
    }
    Findings found;
    for (const ResourceOverride& resource : flow.overrides) {
        if (std::find(names.begin(), names.end(), resource.name) == names.end()) {
            found.push_back({Severity::error, flow.file, resource.place,
                             "the bundle has no '" + resource.name + "'" + suggestion(resource.name, names)});
        }
    }
    return found;
}

Device PreparedBundle::deviceFor(const Flow& flow) const {
    Device shown = device ? *device : deviceNamed(flow.device.empty() ? usualDevice : flow.device).value();
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
    bundle.folder = options.bundle.empty() ? usualBundle() : options.bundle;
    if (const Result<std::string> info = readWholeFile(bundle.folder / "Info.plist"); !info) {
        return Failure{bundle.folder.string() + " is no extension bundle: " + info.failure().what};
    }
    openExtensionBundle(bundle.folder, bundle.overrides);
    Result<BundleFindings> findings = checkMainBundle(options.content);
    if (!findings) {
        return findings.failure();
    }
    bundle.findings = std::move(findings.value());
    return bundle;
}

bool canShow(const PreparedBundle& bundle, const BundleOptions& options) {
    if (!bundle.findings.canLaunch || !options.content) {
        return bundle.findings.canLaunch;
    }
    Result<std::string> list = readWholeFile(*options.content);
    return list && decodeModeList(std::move(list).value());
}

std::string deviceNameFor(const BundleOptions& options, const Flow& flow) {
    return !options.device.empty() ? options.device : !flow.device.empty() ? flow.device : usualDevice;
}

std::vector<std::string> devicesOf(const BundleOptions& options, const std::vector<NamedFlow>& flows) {
    std::set<std::string> devices;
    for (const NamedFlow& named : flows) {
        if (named.flow && named.flow->scene.empty()) {
            devices.insert(deviceNameFor(options, *named.flow));
        }
    }
    return {devices.begin(), devices.end()};
}

CommandResult withBundle(const BundleOptions& options, const std::vector<std::string>& devices,
                         const std::function<CommandResult(const PreparedBundle&)>& use) {
    const Result<PreparedBundle> bundle = prepareBundle(options);
    if (!bundle) {
        return bundle.failure();
    }
    Findings findings = bundle.value().findings.all;
    tell(findings);
    if (!canShow(bundle.value(), options)) {
        findings.push_back({Severity::error, "", std::nullopt, "nothing is shown, as this must be mended first"});
        tell({findings.back()});
        return findings;
    }
    ScreenLook look(bundle.value(), devices, ScreenExtent::opening);
    CommandResult result = use(bundle.value());
    const Findings onScreen = look.tellNews();
    if (result) {
        result.value().insert(result.value().begin(), findings.begin(), findings.end());
        result.value().insert(result.value().end(), onScreen.begin(), onScreen.end());
    }
    return result;
}
