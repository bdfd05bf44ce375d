#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace bench {

/// What one process measured of itself, printed as one line of JSON in the order of adding.
class Figures {
public:
    void add(const std::string& name, double value) { m_figures.emplace_back(name, value); }
    /// Adds NAME_median and NAME_p99.
    void addSamples(const std::string& name, std::vector<double> samples);
    void print() const;

private:
    std::vector<std::pair<std::string, double>> m_figures;
};

/// Runs `work` and returns how many milliseconds it took.
[[nodiscard]] double milliseconds(const std::function<void()>& work);
[[nodiscard]] double median(std::vector<double> samples);
/// Milliseconds since the program that measures started this process: it leaves the time in the environment variable
/// TD_BENCH_START, in nanoseconds of the monotonic clock. 0 without it.
[[nodiscard]] double millisecondsSinceStart();
/// The most memory that this process has held so far.
[[nodiscard]] double peakMegabytes();

/// What the two whole-process programs are asked to do.
constexpr int scrollSteps = 300;
constexpr int repaints = 20;

} // namespace bench
