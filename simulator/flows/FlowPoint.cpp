#include "simulator/flows/FlowPoint.h"

#include <cmath>
#include <cstdlib>
#include <optional>

namespace {

/// One coordinate, with or without a per cent sign; absent when it is no finite number.
std::optional<double> coordinate(std::string text, bool relative) {
    if (relative && !text.empty() && text.back() == '%') {
        text.pop_back();
    }
    char* end = nullptr;
    const double number = std::strtod(text.c_str(), &end);
    const bool whole = !text.empty() && *end == '\0' && std::isfinite(number);
    return whole ? std::optional(number) : std::nullopt;
}

} // namespace

CGPoint FlowPoint::in(CGSize window) const {
    return relative ? CGPoint{window.width * x / 100, window.height * y / 100} : CGPoint{x, y};
}

FlowPoint readPoint(const FlowValue& value) {
    const std::string text = value.text();
    const std::size_t comma = text.find(',');
    const bool relative = !text.empty() && text.back() == '%';
    if (comma != std::string::npos && relative == (comma > 0 && text[comma - 1] == '%')) {
        const std::optional<double> x = coordinate(text.substr(0, comma), relative);
        const std::optional<double> y = coordinate(text.substr(comma + 1), relative);
        if (x && y) {
            return {*x, *y, relative};
        }
    }
    if (value.isText()) {
        value.complain("a point is written \"120,40\" or \"50%,80%\"");
    }
    return {};
}
