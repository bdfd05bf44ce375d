#pragma once

#include "simulator/conversation/Device.h"

#include <string>
#include <vector>

/// One picture of a gallery.
struct GalleryPicture {
    std::string file;
    std::string appearance; // "light" or "dark"
    std::string command;    // that takes it by itself
};

/// The same look in each appearance.
struct GalleryScene {
    std::string name;
    std::vector<GalleryPicture> pictures;
};

/// All that is shown of one phone.
struct GalleryDevice {
    Device device;
    std::vector<GalleryPicture> sheets; // all scenes on one picture; without commands
    std::vector<GalleryScene> scenes;
};

/// What makes a page one of ours; every page holds it.
inline constexpr const char* galleryMark = R"(<meta name="generator" content="parlor gallery">)";

/// The page to look through the pictures, which stand beside it. It fetches nothing and needs no server.
[[nodiscard]] std::string galleryPage(const std::vector<GalleryDevice>& devices);
