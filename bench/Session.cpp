#include "bench/Session.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace bench {

namespace {

double quantile(std::vector<double> samples, double fraction) {
    const auto at = static_cast<std::ptrdiff_t>(fraction * static_cast<double>(samples.size() - 1) + 0.5);
    std::nth_element(samples.begin(), samples.begin() + at, samples.end());
    return samples[static_cast<std::size_t>(at)];
}

} // namespace

void Figures::addSamples(const std::string& name, std::vector<double> samples) {
    add(name + "_median", quantile(samples, 0.5));
    add(name + "_p99", quantile(std::move(samples), 0.99));
}

void Figures::print() const {
    const char* separator = "{";
    for (const auto& [name, value] : m_figures) {
        std::printf("%s\"%s\": %.4f", separator, name.c_str(), value);
        separator = ", ";
    }
    std::puts("}");
}

double milliseconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

double median(std::vector<double> samples) {
    return quantile(std::move(samples), 0.5);
}

double millisecondsSinceStart() {
    const char* start = std::getenv("TD_BENCH_START");
    if (start == nullptr) {
        return 0;
    }
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<double>(std::chrono::nanoseconds(now).count() - std::atoll(start)) / 1e6;
}

double peakMegabytes() {
    std::FILE* status = std::fopen("/proc/self/status", "r");
    char line[256];
    double kilobytes = 0;
    while (status != nullptr && std::fgets(line, sizeof line, status) != nullptr) {
        if (std::strncmp(line, "VmHWM:", 6) == 0) {
            kilobytes = std::atof(line + 6);
        }
    }
    if (status != nullptr) {
        std::fclose(status);
    }
    return kilobytes / 1024;
}

} // namespace bench
