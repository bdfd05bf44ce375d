// Runs the extension and what it is measured against by turns and sets their figures side by side:
//
// bench-compare RUNS RESULT.json SMALL-BUNDLE LARGE-BUNDLE EXTENSION LIMIT [QTWIDGETS]
//
// Prints a table; the file gets the same figures and every single run. Exit status 1 when a program fails, not when a
// goal is missed.

#include "bench/Session.h"

#include <boost/json.hpp>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace json = boost::json;

namespace {

constexpr const char* limitName = "limit";
constexpr const char* toolkitName = "Qt Widgets";
constexpr const char* bareToolkitName = "Qt Widgets, nothing over its list";

/// How many times what another program needs the extension may need.
struct Goal {
    const char* program;
    double ratio;
};

struct Line {
    const char* title;
    const char* content;
    const char* figure;
    Goal first;
    Goal second = {"", 0};
};

constexpr std::array lines{
    Line{"start to first frame, small (ms)", "small", "start_ms", {limitName, 1.08}, {toolkitName, 0.70}},
    Line{"start to first frame, large (ms)", "large", "start_ms", {limitName, 1.15}},
    Line{"scrolled frame, large: median (ms)", "large", "scroll_ms_median", {limitName, 1.15}, {bareToolkitName, 0.75}},
    Line{"scrolled frame, large: 99th percentile (ms)",
         "large",
         "scroll_ms_p99",
         {limitName, 1.15},
         {bareToolkitName, 0.75}},
    Line{"full repaint (ms)", "large", "repaint_ms", {limitName, 1.20}, {toolkitName, 0.30}},
    Line{"choosing another group, small (ms)", "small", "choose_ms", {limitName, 1.10}},
    Line{"choosing another group, large (ms)", "large", "choose_ms", {limitName, 1.10}},
    Line{"peak memory, small (MB)", "small", "memory_mb", {limitName, 1.19}, {toolkitName, 0.80}},
    Line{"peak memory, large (MB)", "large", "memory_mb", {limitName, 1.20}, {toolkitName, 0.80}},
    Line{"load pass, small (ms)", "small", "load_ms", {limitName, 1.20}},
    Line{"load pass, large (ms)", "large", "load_ms", {limitName, 1.20}},
};

struct Program {
    std::string name;
    std::string path;
    std::vector<std::string> options;
};

/// The last line that one process printed, or nothing when it failed.
std::optional<std::string> outputOf(const Program& program, std::vector<std::string> arguments) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) {
        return std::nullopt;
    }
    arguments.insert(arguments.end(), program.options.begin(), program.options.end());
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    arguments.insert(arguments.begin(), program.path);
    std::vector<char*> pointers;
    for (std::string& argument : arguments) {
        pointers.push_back(argument.data());
    }
    pointers.push_back(nullptr);
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    setenv("TD_BENCH_START", std::to_string(std::chrono::nanoseconds(now).count()).c_str(), 1);
    pid_t process = 0;
    const int failed = posix_spawn(&process, pointers[0], &actions, nullptr, pointers.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    std::string output;
    std::array<char, 4096> part;
    for (ssize_t count = 0; (count = read(ends[0], part.data(), part.size())) > 0;) {
        output.append(part.data(), static_cast<std::size_t>(count));
    }
    close(ends[0]);
    int status = 0;
    if (failed != 0 || waitpid(process, &status, 0) != process || status != 0) {
        return std::nullopt;
    }
    while (!output.empty() && output.back() == '\n') {
        output.pop_back();
    }
    return output.substr(output.rfind('\n') + 1); // debug lines of the extension come before
}

/// All runs of one program with one content, figure by figure.
using Runs = std::map<std::string, std::vector<double>>;

bool addRun(const Program& program, const std::vector<std::string>& arguments, Runs& runs) {
    const std::optional<std::string> output = outputOf(program, arguments);
    json::error_code error;
    const json::value figures = output ? json::parse(*output, error) : json::value();
    if (!figures.is_object()) {
        std::fprintf(stderr, "bench-compare: %s failed with %s\n", program.path.c_str(), arguments[0].c_str());
        return false;
    }
    for (const auto& figure : figures.get_object()) {
        runs[figure.key()].push_back(figure.value().to_number<double>());
    }
    return true;
}

double medianRatio(const std::vector<double>& ours, const std::vector<double>& limit) {
    std::vector<double> ratios;
    for (std::size_t i = 0; i < ours.size(); ++i) {
        ratios.push_back(ours[i] / limit[i]);
    }
    return bench::median(ratios);
}

/// Content, then program name, to what was measured.
using Measured = std::map<std::string, std::map<std::string, Runs>>;

/// The ratio, and behind it the goal when there is one for this program.
std::string describedRatio(const Line& line, const std::string& program, double ratio) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%.2f", ratio);
    for (const Goal& goal : {line.first, line.second}) {
        if (program == goal.program) {
            const char* const verdict = ratio <= goal.ratio ? "reached" : "**missed**";
            std::snprintf(text.data(), text.size(), "%.2f (%.2f %s)", ratio, goal.ratio, verdict);
        }
    }
    return text.data();
}

/// The extension comes first among the programs.
json::array printTable(const std::vector<Program>& programs, Measured& measured) {
    std::string head = "| figure |";
    std::string rule = "|---|";
    for (const Program& program : programs) {
        head += ' ' + program.name + " |";
        rule += "---:|";
    }
    for (std::size_t i = 1; i < programs.size(); ++i) {
        head += " to " + programs[i].name + " |";
        rule += "---:|";
    }
    std::printf("%s\n%s\n", head.c_str(), rule.c_str());
    json::array table;
    for (const Line& line : lines) {
        std::map<std::string, Runs>& runs = measured[line.content];
        json::object entry{{"figure", line.title}};
        std::string ratios;
        std::printf("| %s |", line.title);
        for (const Program& program : programs) {
            const std::vector<double>& theirs = runs[program.name][line.figure];
            std::printf(" %.2f |", bench::median(theirs));
            entry[program.name] = bench::median(theirs);
            if (&program != &programs.front()) {
                const double ratio = medianRatio(runs[programs.front().name][line.figure], theirs);
                ratios += ' ' + describedRatio(line, program.name, ratio) + " |";
                entry["to " + program.name] = ratio;
            }
        }
        std::printf("%s\n", ratios.c_str());
        table.push_back(entry);
    }
    return table;
}

bool measure(int rounds, std::vector<Program> programs, const std::map<std::string, std::string>& bundles,
             Measured& measured) {
    for (int round = 0; round < rounds; ++round) {
        for (const auto& [content, bundle] : bundles) {
            for (const Program& program : programs) {
                Runs& runs = measured[content][program.name];
                if (!addRun(program, {bundle}, runs) || !addRun(program, {bundle, "--load"}, runs)) {
                    return false;
                }
            }
        }
        std::rotate(programs.begin(), programs.begin() + 1, programs.end()); // none is always the first
    }
    return true;
}

} // namespace

int main(int argc, char** argv) {
    const int rounds = argc == 7 || argc == 8 ? std::atoi(argv[1]) : 0;
    if (rounds < 1) {
        std::fputs("usage: bench-compare RUNS RESULT.json SMALL-BUNDLE LARGE-BUNDLE EXTENSION LIMIT [QTWIDGETS]\n",
                   stderr);
        return 2;
    }
    std::vector<Program> programs{{"extension", argv[5], {}}, {limitName, argv[6], {}}};
    if (argc == 8) {
        programs.push_back({toolkitName, argv[7], {}});
        programs.push_back({bareToolkitName, argv[7], {"--bare"}});
    }
    Measured measured;
    if (!measure(rounds, programs, {{"small", argv[3]}, {"large", argv[4]}}, measured)) {
        return 1;
    }
    const json::array table = printTable(programs, measured);
    std::ofstream(argv[2]) << json::object{{"rounds", rounds}, {"table", table}, {"runs", json::value_from(measured)}}
                           << '\n';
    return 0;
}
