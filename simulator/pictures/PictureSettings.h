#pragma once

#include <filesystem>

/// Where the pictures of a flow go and what to do about golden ones.
struct PictureSettings {
    std::filesystem::path output = "out";
    bool updateGoldens = false;
};
