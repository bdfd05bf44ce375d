#pragma once

#include "platform/foundation/Geometry.h"
#include "platform/foundation/NSParagraphStyle.h"
#include "platform/graphics/UIFont.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

/// What happens to text that does not fit its width; the numbers are those of archives.
enum class NSLineBreakMode {
    byWordWrapping = 0,
    byCharWrapping = 1,
    byClipping = 2,
    byTruncatingTail = 4,
};

/// What is to be laid out, and in which room.
struct TextRequest {
    /// UTF-8; bytes that are not show as U+FFFD.
    std::string text = {};
    /// Never null.
    std::shared_ptr<UIFont> font = UIFont::systemFontOfSize(17);
    NSTextAlignment alignment = NSTextAlignment::natural;
    /// Points between two lines.
    CGFloat lineSpacing = 0;
    NSLineBreakMode lineBreakMode = NSLineBreakMode::byTruncatingTail;
    /// 0 for no limit.
    int maximumLines = 0;
    /// In points; absent for unbounded.
    std::optional<CGFloat> width = std::nullopt;
};

/// Text broken into lines, measured and ready to draw at any scale; immutable, shared by whoever shows it. Lines have
/// the height of the font, also where an emoji stands; all of them are higher when a script of the text needs it.
class TextLayout {
    /// Only `make` has one.
    struct Key {
        explicit Key() = default;
    };

public:
    /// What was made last is kept: the same request again gives the same layout. Ask again rather than keep it.
    [[nodiscard]] static std::shared_ptr<const TextLayout> make(const TextRequest& request);
    /// The first character of a text that no font of the machine has; empty when all can be shown.
    [[nodiscard]] static std::string characterWithoutFont(std::string_view text);
    TextLayout(Key, const TextRequest& request);
    ~TextLayout();
    TextLayout(const TextLayout&) = delete;
    TextLayout& operator=(const TextLayout&) = delete;

    /// The widest line (at most the width asked for) and the sum of the lines, unrounded. An empty text has width 0 and
    /// the height of one line.
    [[nodiscard]] CGSize size() const;
    [[nodiscard]] int lineCount() const;
    /// Whether some of the text had no room and was left out.
    [[nodiscard]] bool isCut() const;
    /// From the top of the layout.
    [[nodiscard]] CGFloat firstBaseline() const;
    [[nodiscard]] CGFloat lastBaseline() const;
    /// The text asked for, not what is left of it after truncation.
    [[nodiscard]] const std::string& text() const;

    /// The laid-out glyphs, for the drawing backend.
    struct Lines;
    [[nodiscard]] const Lines& lines() const { return *m_lines; }

private:
    std::string m_text;
    std::unique_ptr<Lines> m_lines;
};
