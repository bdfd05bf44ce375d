#pragma once

#include "platform/graphics/PNG.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include <unistd.h>

/// A folder of a test's own, removed at its end.
class TemporaryFolder {
public:
    TemporaryFolder() : m_path(std::filesystem::temp_directory_path() / ("graphics-" + std::to_string(getpid()))) {
        std::filesystem::create_directories(m_path);
    }
    ~TemporaryFolder() { std::filesystem::remove_all(m_path); }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] std::string path(const std::string& name) const { return m_path / name; }

    std::string writeText(const std::string& name, std::string_view bytes) const {
        std::ofstream(path(name), std::ios::binary) << bytes;
        return path(name);
    }

    /// A picture of one colour (premultiplied).
    std::string writePicture(const std::string& name, int width, int height, std::uint32_t pixel) const {
        Bitmap bitmap(width, height);
        for (int y = 0; y < height; ++y) {
            std::fill_n(bitmap.row(y), width, pixel);
        }
        const std::optional<std::string> error = writePNG(bitmap, path(name));
        return error.has_value() ? "" : path(name);
    }

private:
    std::filesystem::path m_path;
};
