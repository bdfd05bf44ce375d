#pragma once

#include "simulator/commands/RunOptions.h"

#include <filesystem>
#include <string>
#include <vector>

/// Which phones a gallery shows and where it goes.
struct GalleryOptions {
    std::vector<std::string> devices; // empty: the usual one
    std::filesystem::path folder;
    bool force = false; // also overwrites what is not its own
};

/// Takes pictures of every group and of the open dropdown, light and dark, on each device: single files, a contact
/// sheet and a page with all of them.
[[nodiscard]] ExitStatus makeGallery(RunOptions options, const GalleryOptions& gallery);
