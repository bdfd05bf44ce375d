#pragma once

#include "platform/graphics/Bitmap.h"

#include <string>
#include <vector>

/// One row of pictures, each with a caption above it.
class ContactSheet {
public:
    void add(Bitmap picture, std::string caption) { m_cells.push_back({std::move(picture), std::move(caption)}); }

    /// The rows one below the other as one picture.
    [[nodiscard]] static Bitmap stack(const std::vector<ContactSheet>& rows);

private:
    struct Cell {
        Bitmap picture;
        std::string caption;
    };
    [[nodiscard]] int width() const;
    [[nodiscard]] int height() const;
    void paint(Bitmap& sheet, int top) const;

    std::vector<Cell> m_cells;
};
