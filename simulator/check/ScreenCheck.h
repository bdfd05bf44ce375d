#pragma once

#include "platform/foundation/Finding.h"
#include "simulator/conversation/Device.h"

#include <optional>
#include <string>
#include <vector>

/// Something wrong with a view on the screen of one device.
struct ScreenFinding {
    std::string rule;
    std::string path; // of the interface document, empty for views that none made
    std::optional<TextPlace> place;
    std::string what;   // the same on all devices that it is said of once
    std::string detail; // in numbers
    double amount = 0;  // of several, the one with the greatest tells its detail
    std::string device;
    std::string appearance{}; // "dark" or "light", where it matters
};

/// What the extension opens with, or also the rows of all lists.
enum class ScreenExtent { opening, everything };

/// Opens the extension of the main bundle on the device and looks at what is laid out there: in both presentations,
/// with the list of groups closed and open, in both appearances. Once a process: the
/// extension reads the height of the screen only once.
[[nodiscard]] std::vector<ScreenFinding> checkScreen(const Device& device, ScreenExtent extent);

/// For the way from one process to another.
[[nodiscard]] std::string screenFindingsText(const std::vector<ScreenFinding>& findings);
[[nodiscard]] std::vector<ScreenFinding> readScreenFindings(const std::string& text);

/// What is said of several devices is said once, in the numbers of the worst. `deviceCount` is how many were looked at.
[[nodiscard]] Findings joinScreenFindings(const std::vector<ScreenFinding>& findings, std::size_t deviceCount);
