#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

/// What a command line asks for.
struct RunOptions {
    std::vector<std::string> flows;       // files and folders; empty: the content file, or the typical road
    std::filesystem::path bundle;         // empty: the one that was built beside the program
    std::string device;                   // empty: each flow's own, or 15
    std::optional<std::string> content;   // a content file to show
    std::optional<std::string> report;    // where to write what happened
    std::filesystem::path output = "out"; // for pictures
    bool updateGoldens = false;
    bool quiet = false;
};

/// What a process says by ending: fine, something failed or was found, wrong usage or unreadable input.
enum ExitStatus { exitFine = 0, exitFailed = 1, exitUsage = 2 };

/// A file that belongs to the program: beside it or beside a folder that it stands in, where the build puts it.
[[nodiscard]] std::filesystem::path besideProgram(const std::string& name);
