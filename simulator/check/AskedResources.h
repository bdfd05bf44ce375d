#pragma once

#include "platform/foundation/Finding.h"

#include <filesystem>

class NSBundle;

/// Nibs, scenes, images and colours that the registered classes ask for by name and the bundle lacks, and colours of
/// texts that do not follow the dark appearance.
[[nodiscard]] Findings checkAskedResources(const NSBundle& bundle, const std::filesystem::path& mainStoryboard);
