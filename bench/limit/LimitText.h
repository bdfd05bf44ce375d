#pragma once

#include <cairo.h>

#include <string>
#include <vector>

namespace limit {

/// Glyphs of one font, placed from the top left corner of their text.
struct GlyphRun {
    cairo_scaled_font_t* font;
    std::vector<cairo_glyph_t> glyphs;
};

/// A text laid out once and drawn often. All lengths in pixels.
struct Text {
    std::vector<GlyphRun> runs;
    int width = 0;
    int height = 0;
};

enum class Weight { regular, semibold, bold };

/// `width` 0: on one line. Fonts are opened at the first call, from two folders only.
[[nodiscard]] Text layOut(const std::string& text, Weight weight, int pixels, int width);
void draw(cairo_t* cairo, const Text& text, int x, int y, unsigned rgb);
void setColor(cairo_t* cairo, unsigned rgb, double alpha = 1);

} // namespace limit
