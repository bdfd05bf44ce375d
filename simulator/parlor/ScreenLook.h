#pragma once

#include "simulator/check/ScreenCheck.h"
#include "simulator/parlor/OwnProcess.h"
#include "simulator/parlor/PreparedBundle.h"

/// Looks at the layout and the accessibility of the extension's screen on some devices, each in a process of its own,
/// while the one that asks goes on. `parlor check` looks at all that can be seen; commands that play look at what the
/// extension opens with.
class ScreenLook {
public:
    /// Starts at once. The bundle stays where it is until the look is finished.
    ScreenLook(const PreparedBundle& bundle, std::vector<std::string> devices, ScreenExtent extent);

    /// Waits for what was found. Once.
    [[nodiscard]] Findings finish();
    /// The same without what is known, told and as warnings: it stops nothing.
    [[nodiscard]] Findings tellNews();

private:
    std::string m_bundle;
    std::vector<std::string> m_devices;
    OwnProcesses m_looks; // of each device
};

/// The file of findings that are there on purpose.
[[nodiscard]] std::filesystem::path usualKnownFindings();
