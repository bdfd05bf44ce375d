#pragma once

#include "content/ModeItem.h"

#include <string>
#include <vector>

/// A titled group of game modes as shown. A value; the title is fixed once it is built. An empty title means that the
/// section is shown without a header.
struct ModeSection {
    std::string sectionTitle;
    std::vector<ModeItem> items;
};
