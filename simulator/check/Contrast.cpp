#include "simulator/check/Contrast.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <set>

namespace {

double linear(double component) {
    return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

double luminance(const RGBA& color) {
    return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

RGBA colorOf(std::uint32_t pixel) {
    const auto part = [&](unsigned shift) { return ((pixel >> shift) & 0xFFu) / 255.0; };
    return {part(16), part(8), part(0), 1};
}

RGBA over(const RGBA& top, const RGBA& ground) {
    const auto mix = [&](double one, double other) { return one * top.alpha + other * (1 - top.alpha); };
    return {mix(top.red, ground.red), mix(top.green, ground.green), mix(top.blue, ground.blue), 1};
}

double distance(const RGBA& one, const RGBA& other) {
    return std::max(
        {std::abs(one.red - other.red), std::abs(one.green - other.green), std::abs(one.blue - other.blue)});
}

std::string hexText(const RGBA& color) {
    const auto byte = [](double part) { return static_cast<unsigned>(std::lround(part * 255)); };
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "#%02X%02X%02X", byte(color.red) & 0xFFu, byte(color.green) & 0xFFu,
                  byte(color.blue) & 0xFFu);
    return text.data();
}

} // namespace

double contrastRatio(const RGBA& one, const RGBA& other) {
    const double first = luminance(one);
    const double second = luminance(other);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

ContrastRange contrastOver(const Bitmap& ground, const CGRect& area, const RGBA& text) {
    constexpr double sameGround = 0.03;
    std::set<std::uint32_t> pixels;
    const int right = std::min(ground.width(), static_cast<int>(std::floor(area.maxX())));
    const int bottom = std::min(ground.height(), static_cast<int>(std::floor(area.maxY())));
    for (int y = std::max(0, static_cast<int>(std::ceil(area.minY()))); y < bottom; ++y) {
        for (int x = std::max(0, static_cast<int>(std::ceil(area.minX()))); x < right; ++x) {
            pixels.insert(ground.pixel(x, y));
        }
    }
    ContrastRange range;
    for (const std::uint32_t pixel : pixels) {
        const RGBA under = colorOf(pixel);
        const RGBA shown = over(text, under);
        const double ratio = contrastRatio(shown, under);
        range.isOneGround = range.isOneGround && distance(under, colorOf(*pixels.begin())) <= sameGround;
        range.most = std::max(range.most, ratio);
        if (ratio <= range.least) {
            range.least = ratio;
            range.colors = hexText(shown) + " on " + hexText(under);
        }
    }
    return range;
}

std::string ratioText(double ratio) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.2f:1", ratio);
    return text.data();
}
