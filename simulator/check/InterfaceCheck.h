#pragma once

#include "platform/foundation/Finding.h"
#include "platform/foundation/NSBundle.h"

/// What is wrong with the interface of a bundle.
struct InterfaceFindings {
    Findings all; // documents first
    std::size_t files = 0;
};

/// Tries every interface document of the bundle (all objects are made and connected, no view is loaded by a controller)
/// and reads every set of its asset catalogue. Errors of documents, and warnings of the images and colours
/// that the catalogue lacks or that are broken there. Needs the classes to be registered and the bundle's catalogue to
/// be the current one. `mainStoryboard` must say which controller comes first.
[[nodiscard]] InterfaceFindings checkInterface(const NSBundle& bundle,
                                               const std::filesystem::path& mainStoryboard = {});
/// One document by itself, with the current catalogue. What is said of more than three elements is one finding, which
/// names the lines of the others.
[[nodiscard]] Findings checkDocument(const std::filesystem::path& path);
