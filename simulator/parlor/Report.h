#pragma once

#include "simulator/flows/FlowPlayer.h"

/// What came of a run, for other programs; docs/report.md describes both formats.
struct RunReport {
    std::vector<FlowResult> flows;
    Findings findings;                  // of the bundle and of somebody's own list
    std::optional<std::string> failure; // why not everything could be done

    [[nodiscard]] bool passed() const;
};

enum class ReportFormat { json, junit };

[[nodiscard]] std::string reportText(const RunReport& report, ReportFormat format);

/// Why a report must not be written to this file: it holds something else. Absent for "-", for a file that is not there
/// yet, and for an earlier report.
[[nodiscard]] std::optional<Failure> refusalOfReport(const std::string& path);
