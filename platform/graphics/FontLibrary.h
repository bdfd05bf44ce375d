#pragma once

#include "platform/foundation/Geometry.h"

struct _PangoContext;
struct _PangoFontDescription;
class UIFont;

/// The fonts of the interface: Inter, then Noto Color Emoji, and no other whatever the machine has, so that text looks
/// and measures the same everywhere. Opened at the first text of a process and kept. Stops the program when a font is
/// missing. For text layout and font metrics only.
class FontLibrary {
public:
    /// In ems.
    struct Metrics {
        CGFloat ascender = 0;
        CGFloat descender = 0;
    };

    static FontLibrary& shared();

    /// For layouts in points: one unit of a layout is one point, nothing is hinted or rounded.
    [[nodiscard]] _PangoContext* context() const { return m_context; }
    [[nodiscard]] const Metrics& metrics() const { return m_metrics; }
    /// The caller frees it.
    [[nodiscard]] static _PangoFontDescription* makeDescription(const UIFont& font);

private:
    FontLibrary();
    [[nodiscard]] Metrics measure() const;

    _PangoContext* m_context;
    Metrics m_metrics;
};
