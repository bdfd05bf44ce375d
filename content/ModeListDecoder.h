#pragma once

#include "content/ModeSectionDTO.h"

#include "platform/foundation/JSONDocument.h"

#include <string>
#include <vector>

/// Decodes the text of a mode-list file: an array of sections of items. Every key must be present with its type; a key
/// that is not known is ignored. Sections, items and keys are read in order, and the first that fails is the error, for
/// example: section 2, item 3: "isSelected" must be true or false, but is a number. Its place is that of the wrong
/// value, or of the object that lacks a key. Any thread.
[[nodiscard]] Result<std::vector<ModeSectionDTO>> decodeModeList(std::string text);
/// The same for a text that has been parsed.
[[nodiscard]] Result<std::vector<ModeSectionDTO>> decodeModeList(const JSONDocument& document);
