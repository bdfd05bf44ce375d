#pragma once

#include "platform/graphics/TextLayout.h"

#include <memory>
#include <vector>

struct _PangoLayout;
struct _PangoLayoutLine;

/// One line of a layout. `x` is where it begins, `baseline` where it stands, both from the layout's top left corner.
struct TextLine {
    /// Owned by one of the layouts beside it.
    _PangoLayoutLine* glyphs = nullptr;
    CGFloat x = 0;
    CGFloat baseline = 0;
    CGFloat ascent = 0;
    CGFloat descent = 0;
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
    bool truncated = false;
};
