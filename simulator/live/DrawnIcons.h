#pragma once

#include "platform/foundation/Finding.h"

#include <filesystem>

/// Renders, as the build does it, the SVG files of a catalogue that were saved after that time and are newer than their
/// pictures, which stand in `rendered` under the same names. Says what cannot be drawn.
[[nodiscard]] Findings renderDrawings(const std::filesystem::path& catalogue, const std::filesystem::path& rendered,
                                      std::filesystem::file_time_type savedAfter);
