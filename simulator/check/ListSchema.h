#pragma once

#include "platform/foundation/JSONDocument.h"

#include <string_view>
#include <vector>

/// One key of the objects in a content file. All of them are required. Checks and the published schema share it; that
/// it is what the extension's decoder wants is tested.
struct ListKey {
    std::string_view name;
    JSONKind kind;
    std::string_view expected; // "a text"
    std::string_view meaning;
};

[[nodiscard]] const std::vector<ListKey>& sectionKeys();
[[nodiscard]] const std::vector<ListKey>& itemKeys();
