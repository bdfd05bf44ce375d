#pragma once

#include "platform/graphics/TextLines.h"

#include <string>
#include <string_view>

/// Breaks a text into lines a piece at a time, so that the work grows with the lines that are wanted and not with the
/// text, also where a word fills thousands of lines. Makes the lines of one TextLayout and is gone.
class LineBreaker {
public:
    /// `text` is valid UTF-8 without NUL. Both outlive the breaker.
    LineBreaker(const TextRequest& request, std::string_view text);

    [[nodiscard]] std::unique_ptr<TextLayout::Lines> run();

private:
    using Owner = TextLayout::Lines::Owner;

    [[nodiscard]] bool shortensLastLine() const;
    [[nodiscard]] std::size_t linesLeft() const;
    void breakPiece();
    void takeLines(_PangoLayout* layout, std::size_t count);
    void addShortenedLine();
    [[nodiscard]] std::string shortened(std::string_view rest, std::size_t limit) const;
    [[nodiscard]] std::size_t endOfPiece() const;
    [[nodiscard]] std::string_view directionMark() const;
    [[nodiscard]] Owner makeLayout(const std::string& text) const;
    void addLine(_PangoLayoutLine* glyphs);
    void place();

    const TextRequest& m_request;
    std::string_view m_text;
    UIFont m_font;
    /// Absent for unbounded.
    std::optional<CGFloat> m_width;
    std::size_t m_position = 0;
    std::size_t m_pieceLength;
    bool m_done = false;
    std::unique_ptr<TextLayout::Lines> m_result;
};
