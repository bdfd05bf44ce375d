#pragma once

#include "platform/graphics/Bitmap.h"

#include <string>
#include <vector>

/// Pictures of one size, each with a caption above it, in rows on one picture.
class ContactSheet {
public:
    void add(Bitmap picture, std::string caption) { m_cells.push_back({std::move(picture), std::move(caption)}); }
    /// There must be one picture at least.
    [[nodiscard]] Bitmap picture() const;

private:
    struct Cell {
        Bitmap picture;
        std::string caption;
    };

    std::vector<Cell> m_cells;
};
