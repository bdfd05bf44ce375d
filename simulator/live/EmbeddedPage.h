#pragma once

#include <span>
#include <string_view>

/// A file of the page as the build found it.
struct EmbeddedPart {
    std::string_view name;
    std::string_view text;
};

/// All files of page/; their source is written by the build.
[[nodiscard]] std::span<const EmbeddedPart> embeddedPage();
