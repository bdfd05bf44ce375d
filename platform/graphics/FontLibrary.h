#pragma once

#include "platform/foundation/Geometry.h"

#include <array>
#include <cstddef>
#include <string_view>

struct _FcCharSet;
struct _PangoContext;
struct _PangoFontDescription;
class UIFont;

/// The fonts of texts: Inter and Noto Color Emoji, and no other whatever the machine has, so that text looks and
/// measures the same everywhere. Only a text with a character that neither has is set in Inter and the Noto Sans of its
/// script and, where that is missing too, in whatever font the machine has. Opened at the first text of a process that
/// needs them, and kept. Stops the program when one of the first two is missing. For text layout and font metrics only,
/// and for a host that has a thread to open them on while the interface files are read.
class FontLibrary {
public:
    /// In ems.
    struct Metrics {
        CGFloat ascender = 0;
        CGFloat descender = 0;
    };

    static FontLibrary& shared();

    /// For layouts in points: one unit of a layout is one point, nothing is hinted or rounded.
    /// `text` is valid UTF-8.
    [[nodiscard]] _PangoContext* contextFor(std::string_view text);
    [[nodiscard]] const Metrics& metrics() const { return m_metrics; }
    /// The caller frees it.
    [[nodiscard]] static _PangoFontDescription* makeDescription(const UIFont& font);

private:
    struct Fonts {
        _PangoContext* context = nullptr; // until a text needs these fonts
        _FcCharSet* characters = nullptr;
    };

    FontLibrary();
    void open(std::size_t index);
    [[nodiscard]] Metrics measure() const;

    std::array<Fonts, 3> m_fonts;
    Metrics m_metrics;
};
