#pragma once

#include "simulator/check/BundleCheck.h"
#include "simulator/conversation/Device.h"
#include "simulator/flows/Flow.h"
#include "simulator/parlor/Commands.h"

/// What the options that all commands share ask for.
struct BundleOptions {
    std::filesystem::path bundle;       // empty: the one that the program was built from
    std::string device;                 // empty: each flow's own, or 15
    std::optional<std::string> content; // a content file to show
    std::optional<std::string> group;   // for which it is shown; absent: the one that it is named after, or the first
    std::string textSize = "large";     // that the reader has set
    bool rightToLeft = false;           // the direction of the phone's language, or else the flow's own
};

/// The bundle that a command's flows are played on, perhaps with a content file of somebody's own. Made by
/// prepareBundle() before the first flow.
struct PreparedBundle {
    std::filesystem::path folder;
    std::optional<Device> device; // of the command line; then it stands in for a flow's own
    UIContentSizeCategory textSize = UIContentSizeCategory::large;
    bool rightToLeft = false;
    std::vector<ResourceOverride> overrides; // for every flow
    BundleFindings findings;

    /// Takes all but the folder from the options; why that cannot be, else.
    [[nodiscard]] std::optional<Failure> fitTo(const BundleOptions& options);
    /// Makes it the main bundle, as the flow wants it.
    void openFor(const Flow& flow) const;
    /// What is wrong with the resources that the flow names: the bundle has none of that name.
    [[nodiscard]] Findings check(const Flow& flow) const;
    [[nodiscard]] Device deviceFor(const Flow& flow) const;
};

/// Whether a content file can also be given as a word alone, without --content.
enum class ContentWord { named, alone };
/// Adds --bundle, --content, --text-size and --right-to-left.
void addBundleOptions(CLI::App& command, BundleOptions& options, ContentWord content = ContentWord::named);
/// Adds --device.
void addDeviceOption(CLI::App& command, BundleOptions& options);

/// Adds --group.
void addGroupOption(CLI::App& command, BundleOptions& options);

/// Checks options and bundle, and leaves it open.
[[nodiscard]] Result<PreparedBundle> prepareBundle(const BundleOptions& options);

/// Whether the extension can be launched, with a list that was asked for on its screen.
[[nodiscard]] bool canShow(const PreparedBundle& bundle, const BundleOptions& options);

/// What commands do with a bundle: tells what is wrong with its data and, if it can be shown, goes on to `use` it, and
/// tells at last what is wrong with its screen on those devices.
[[nodiscard]] CommandResult withBundle(const BundleOptions& options, const std::vector<std::string>& devices,
                                       const std::function<CommandResult(const PreparedBundle&)>& use);
/// The command line's device, or else the flow's own, or the usual one.
[[nodiscard]] std::string deviceNameFor(const BundleOptions& options, const Flow& flow);
/// Those that the extension is shown on, each once; a flow with a scene of its own shows something else.
[[nodiscard]] std::vector<std::string> devicesOf(const BundleOptions& options, const std::vector<NamedFlow>& flows);

/// The player group that a content file is shown for: the one it is named after, or else the one that is shown first.
[[nodiscard]] std::string groupFor(const std::filesystem::path& content);

/// What the program takes when no bundle is named: the sources in the tree that it was built from, so that an edit
/// counts at once and every place is one that can be edited; without them the bundle that was assembled beside it.
[[nodiscard]] std::filesystem::path usualBundle();
/// A file of the tree that the program was built from, as seen from the folder that the person stands in.
[[nodiscard]] std::filesystem::path inTree(const std::string& name);
/// A file that belongs to the program: beside it or beside a folder that it stands in, where the build puts it.
[[nodiscard]] std::filesystem::path besideProgram(const std::string& name);
