#pragma once

#include <string>
#include <vector>

/// One game mode as a content file has it. Filled only by decoding.
struct ModeItemDTO {
    std::string icon;
    std::string title;
    std::string subtitle;
    bool isSelected = false;
};

/// One section as a content file has it. Filled only by decoding.
struct ModeSectionDTO {
    std::string sectionTitle;
    std::vector<ModeItemDTO> items;
};
