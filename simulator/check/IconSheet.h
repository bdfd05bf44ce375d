#pragma once

#include "platform/graphics/Bitmap.h"

#include <string>
#include <vector>

/// A picture of images of the catalogue with the name of each below it.
[[nodiscard]] Bitmap iconSheet(const std::vector<std::string>& names);
