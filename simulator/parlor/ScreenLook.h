#pragma once

#include "simulator/check/ScreenCheck.h"
#include "simulator/parlor/PreparedBundle.h"

#include <future>

/// Looks at the layout and the accessibility of the extension's screen on some devices, each in a process of its own,
/// while the one that asks goes on. `parlor check` looks at all that can be seen; commands that play look at what the
/// extension opens with.
class ScreenLook {
public:
    /// Starts at once. Of the options, those that say what is shown.
    ScreenLook(const BundleOptions& options, std::vector<std::string> devices, ScreenExtent extent);
    /// Waits, when nobody has.
    ~ScreenLook();
    ScreenLook(const ScreenLook&) = delete;
    ScreenLook& operator=(const ScreenLook&) = delete;

    /// Waits for what was found. Once.
    [[nodiscard]] Findings finish();
    /// The same without what is known, told and as warnings: it stops nothing.
    [[nodiscard]] Findings tellNews();

private:
    [[nodiscard]] std::filesystem::path file(const std::string& device) const { return m_folder / device; }

    std::string m_bundle;
    std::vector<std::string> m_devices;
    std::filesystem::path m_folder; // for what the processes found
    std::future<CommandResult> m_work;
};

/// The file of findings that are there on purpose.
[[nodiscard]] std::filesystem::path usualKnownFindings();
