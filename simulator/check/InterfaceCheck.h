#pragma once

#include "platform/foundation/Finding.h"
#include "platform/foundation/NSBundle.h"

/// Tries every interface document of the bundle (all objects are made and connected, no view is loaded by a controller)
/// and reads every set of its asset catalogue. Errors of documents, and warnings of the images and colours
/// that the catalogue lacks or that are broken there. Needs the classes to be registered and the bundle's catalogue to
/// be the current one. `mainStoryboard` must say which controller comes first. Sorted by file, documents first.
[[nodiscard]] Findings checkInterface(const NSBundle& bundle, const std::filesystem::path& mainStoryboard = {});
