#pragma once

#include "platform/graphics/TextLayout.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct _PangoLayout;
struct _PangoLayoutLine;

/// One line of a layout. `x` is where it begins, `baseline` where it stands, both from the layout's top left corner.
struct TextLine {
    /// Owned by one of the layouts beside it.
    _PangoLayoutLine* glyphs = nullptr;
    CGFloat x = 0;
    CGFloat baseline = 0;
    CGFloat width = 0;
    bool rightToLeft = false;
};

/// The lines of a text and the Pango layouts that own their glyphs.
struct TextLayout::Lines {
    struct Release {
        void operator()(_PangoLayout* layout) const;
    };
    using Owner = std::unique_ptr<_PangoLayout, Release>;

    std::vector<TextLine> lines;
    std::vector<Owner> owners;
    CGSize size;
    /// Of every line.
    CGFloat ascent = 0;
    CGFloat descent = 0;
    bool isCut = false; // some of the text had no room
};

/// Breaks a text a piece at a time, so that the work grows with the lines that are wanted and not with the text, also
/// where a word fills thousands of lines. `text` is the request's, valid UTF-8 without NUL.
[[nodiscard]] std::unique_ptr<TextLayout::Lines> breakIntoLines(const TextRequest& request, std::string_view text);

/// Whether a font of the machine can show the character, which is valid UTF-8; asked of each character once.
[[nodiscard]] bool hasFontFor(const std::string& character);
