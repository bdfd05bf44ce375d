#pragma once

#include <optional>
#include <string_view>

/// Numbers as interface documents write them: decimal, finite, at most a thousand million either way (so that they can
/// become whole numbers and sums of lengths without further care). Anything else gives nothing.
[[nodiscard]] std::optional<double> parseNumber(std::string_view text);

/// A constraint's multiplier: "0.75", or a ratio "16:9" or "2/3", the first divided by the second.
[[nodiscard]] std::optional<double> parseMultiplier(std::string_view text);
