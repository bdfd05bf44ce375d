#include "platform/interface/NumberText.h"

#include <cmath>
#include <cstdlib>
#include <string>

std::optional<double> parseNumber(std::string_view text) {
    constexpr double largest = 1e9;
    constexpr std::size_t longest = 64;
    // strtod also reads hexadecimal, "inf", "nan" and leading blanks, which no editor writes.
    if (text.empty() || text.size() > longest || text.find_first_not_of("0123456789+-.eE") != std::string_view::npos) {
        return std::nullopt;
    }
    const std::string terminated(text);
    char* end = nullptr;
    const double number = std::strtod(terminated.c_str(), &end);
    if (end != terminated.c_str() + terminated.size() || !std::isfinite(number) || std::abs(number) > largest) {
        return std::nullopt;
    }
    return number;
}

std::optional<double> parseMultiplier(std::string_view text) {
    const std::size_t divider = text.find_first_of(":/");
    if (divider == std::string_view::npos) {
        return parseNumber(text);
    }
    const std::optional<double> first = parseNumber(text.substr(0, divider));
    const std::optional<double> second = parseNumber(text.substr(divider + 1));
    if (!first || !second || *second == 0) {
        return std::nullopt;
    }
    const double quotient = *first / *second;
    return std::isfinite(quotient) ? std::optional(quotient) : std::nullopt;
}
