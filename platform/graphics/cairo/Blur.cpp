#include "platform/graphics/cairo/Blur.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <vector>

namespace {

/// A run of pixels, from one to the next `step` bytes on.
struct Run {
    unsigned char* first;
    std::ptrdiff_t step;
    int length;
};

/// Each pixel becomes the mean of the 2 * reach + 1 around it; outside is empty.
void average(const Run& run, int reach, std::vector<unsigned char>& copy) {
    const int window = 2 * reach + 1;
    for (int i = 0; i < run.length; ++i) {
        copy[static_cast<std::size_t>(i)] = run.first[i * run.step];
    }
    const auto at = [&](int i) { return i < 0 || i >= run.length ? 0 : int{copy[static_cast<std::size_t>(i)]}; };
    int sum = 0;
    for (int i = -reach; i < reach; ++i) {
        sum += at(i);
    }
    for (int i = 0; i < run.length; ++i) {
        sum += at(i + reach);
        run.first[i * run.step] = static_cast<unsigned char>((sum + reach) / window);
        sum -= at(i - reach);
    }
}

} // namespace

void blur(unsigned char* mask, int width, int height, int stride, double sigma) {
    constexpr int passes = 3; // three boxes come within 3 % of a Gaussian
    const double window = sigma * 3 * std::sqrt(2 * std::numbers::pi) / 4;
    const int reach = std::max(1, static_cast<int>(std::lround((window - 1) / 2)));
    std::vector<unsigned char> copy(static_cast<std::size_t>(std::max(width, height)));
    for (int pass = 0; pass < passes; ++pass) {
        for (int y = 0; y < height; ++y) {
            average({mask + std::ptrdiff_t{y} * stride, 1, width}, reach, copy);
        }
        for (int x = 0; x < width; ++x) {
            average({mask + x, stride, height}, reach, copy);
        }
    }
}
