#pragma once

#include "content/ModeSectionDTO.h"

#include "platform/foundation/Result.h"

#include <functional>
#include <optional>
#include <string_view>
#include <vector>

/// Decodes the text of a mode-list file: an array of sections of items. Every key must be present with its type; a key
/// that is not known is ignored. Sections, items and keys are read in order, and the first that fails is the error, for
/// example: section 2, item 3: "isSelected" must be true or false, but is a number. Its place is that of the wrong
/// value, or of the object that lacks a key. Any thread.
[[nodiscard]] Result<std::vector<ModeSectionDTO>> decodeModeList(std::string_view text);
/// The same, a section at a time: those that were received before a failure came to light are void.
[[nodiscard]] std::optional<Failure> decodeModeList(std::string_view text,
                                                    const std::function<void(ModeSectionDTO&& section)>& receive);
