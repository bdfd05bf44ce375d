#pragma once

#include <optional>
#include <string>

/// One game mode as shown. A value; all but `isSelected` is fixed once it is built.
struct ModeItem {
    std::optional<std::string> icon; // image name; content from files always has one
    std::string title;
    std::string subtitle;
    bool isSelected = false; // the row is drawn highlighted
};
