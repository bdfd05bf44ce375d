#pragma once

#include "platform/foundation/Finding.h"
#include "platform/graphics/UIColor.h"
#include "platform/graphics/UIImage.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

/// Reads NAME.colorset: the light colour and, where given, the dark one. Null, with findings, when it is broken.
[[nodiscard]] std::shared_ptr<UIColor> readColorSet(const std::filesystem::path& folder, Findings& findings);

/// Reads NAME.imageset: the files for a phone, else those for any device. An SVG file stands for the PNG files that the
/// build renders beside it. Null when no file is named (an empty slot is no fault) or the set is broken.
[[nodiscard]] std::shared_ptr<UIImage> readImageSet(const std::filesystem::path& folder, const std::string& name,
                                                    Findings& findings);
/// Warns, once for a set, of files that it names and that are missing or cannot be drawn, the PNG files rendered from
/// an SVG included.
void checkImageFiles(const std::filesystem::path& folder, Findings& findings);
