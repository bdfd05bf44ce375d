#pragma once

#include "platform/foundation/Finding.h"

#include <filesystem>

/// What is wrong with one flow: that it cannot be read, resources of the bundle that it replaces or takes away and that
/// are not there, people who are not in the conversation.
[[nodiscard]] Findings checkFlowFile(const std::filesystem::path& file);
/// The same for a text that was read from it.
[[nodiscard]] Findings checkFlowText(const std::string& text, const std::string& path);
