// Runs the limit and the extension by turns and sets their figures side by side:
//
// bench-compare RUNS RESULT.json LIMIT EXTENSION SMALL-BUNDLE LARGE-BUNDLE
//
// Prints a table; the file gets the same figures and every single run. Exit status 1 when a program fails, not when a
// goal is missed.

#include "bench/Session.h"

#include <boost/json.hpp>

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

/// A line of the table. `goal` is how many times the limit the extension may need.
struct Line {
    const char* title;
    const char* content;
    const char* figure;
    double goal;
};

constexpr std::array lines{
    Line{"start to first frame, small (ms)", "small", "start_ms", 1.2},
    Line{"start to first frame, large (ms)", "large", "start_ms", 1.2},
    Line{"scrolled frame, large: median (ms)", "large", "scroll_ms_median", 1.18},
    Line{"scrolled frame, large: 99th percentile (ms)", "large", "scroll_ms_p99", 1.15},
    Line{"full repaint (ms)", "large", "repaint_ms", 1.2},
    Line{"choosing another group, small (ms)", "small", "choose_ms", 1.17},
    Line{"choosing another group, large (ms)", "large", "choose_ms", 1.13},
    Line{"peak memory, small (MB)", "small", "memory_mb", 1.19},
    Line{"peak memory, large (MB)", "large", "memory_mb", 1.2},
    Line{"load pass, small (ms)", "small", "load_ms", 1.2},
    Line{"load pass, large (ms)", "large", "load_ms", 1.6},
};

struct Program {
    std::string name;
    std::string path;
};

/// The last line that one process printed, or nothing when it failed.
std::optional<std::string> outputOf(const Program& program, std::vector<std::string> arguments) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) {
        return std::nullopt;
    }
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

json::array printTable(Measured& measured) {
    json::array table;
    std::printf("| figure | limit | extension | ratio | goal | |\n|---|---:|---:|---:|---:|---|\n");
    for (const Line& line : lines) {
        const std::vector<double>& limit = measured[line.content]["limit"][line.figure];
        const std::vector<double>& ours = measured[line.content]["extension"][line.figure];
        const double ratio = medianRatio(ours, limit);
        std::printf("| %s | %.2f | %.2f | %.2f | %.2f | %s |\n", line.title, bench::median(limit), bench::median(ours),
                    ratio, line.goal, ratio <= line.goal ? "reached" : "missed");
        table.push_back(json::object{{"figure", line.title},
                                     {"limit", bench::median(limit)},
                                     {"extension", bench::median(ours)},
                                     {"ratio", ratio},
                                     {"goal", line.goal}});
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
        std::swap(programs.front(), programs.back()); // neither is always the first on a warm machine
    }
    return true;
}

} // namespace

int main(int argc, char** argv) {
    const int rounds = argc == 7 ? std::atoi(argv[1]) : 0;
    if (rounds < 1) {
        std::fputs("usage: bench-compare RUNS RESULT.json LIMIT EXTENSION SMALL-BUNDLE LARGE-BUNDLE\n", stderr);
        return 2;
    }
    Measured measured;
    if (!measure(rounds, {{"limit", argv[3]}, {"extension", argv[4]}}, {{"small", argv[5]}, {"large", argv[6]}},
                 measured)) {
        return 1;
    }
    const json::array table = printTable(measured);
    std::ofstream(argv[2]) << json::object{{"rounds", rounds}, {"table", table}, {"runs", json::value_from(measured)}}
                           << '\n';
    return 0;
}
