#pragma once

#include "simulator/flows/FlowPlayer.h"
#include "simulator/parlor/Commands.h"
#include "simulator/parlor/OwnProcess.h"

#include <boost/json/object.hpp>

/// What came of a command, for other programs; docs/report.md describes both formats.
struct Report {
    std::string command;                    // "run"
    std::vector<boost::json::object> flows; // as flowReport() makes them
    Findings findings;                      // but for the failures of flows
    std::optional<std::string> failure{};   // why not everything could be done

    [[nodiscard]] bool passed() const;
    [[nodiscard]] std::string json() const;
    [[nodiscard]] std::string junit() const;
};

[[nodiscard]] boost::json::object flowReport(const FlowResult& result);

/// Findings as reports have them, and back.
[[nodiscard]] boost::json::array findingsReport(const Findings& findings);
[[nodiscard]] Findings findingsIn(const boost::json::array& report);

// What came of work, from a process of its own to the one that waits for it.
[[nodiscard]] std::string resultText(const CommandResult& result);
[[nodiscard]] CommandResult resultIn(const OwnOutcome& outcome);

/// Why a report must not be written to this file: it holds something else. Absent for "-", for a file that is not there
/// yet, and for an earlier report.
[[nodiscard]] std::optional<Failure> refusalOfReport(const std::string& path);

/// What the command line says about the report.
struct ReportOptions {
    std::optional<std::string> file; // none is wanted; "-": standard output
    std::string format = "json";
};

/// Adds --report and, as --format, its format.
void addReportOptions(CLI::App& command, ReportOptions& options);

/// Does a command's work, adds what came of it to the report, and writes that where it is wanted; also when the program
/// is stopped meanwhile. The findings that it gives have errors when a flow failed, too.
[[nodiscard]] CommandResult reporting(Report report, const ReportOptions& options,
                                      const std::function<CommandResult(Report&)>& work);
