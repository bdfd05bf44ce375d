#include "platform/graphics/LineBreaker.h"

#include "platform/graphics/FontLibrary.h"

#include <pango/pangocairo.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

/// Bytes laid out at a time; Pango's work on one long word grows with the square of this.
constexpr std::size_t usualPiece = 512;
/// Wider boxes, in points, count as unbounded: Pango measures in 1/1024 of a point in an int.
constexpr CGFloat widestBox = 1'000'000;
/// How far, in ems, glyphs may stand out of a line before the line grows. Emoji and plain accents stay inside.
constexpr CGFloat tolerance = 0.15;
constexpr std::string_view leftToRightMark = "\u200E";
constexpr std::string_view rightToLeftMark = "\u200F";
constexpr std::string_view ellipsis = "…";

CGFloat points(int units) {
    return static_cast<CGFloat>(units) / PANGO_SCALE;
}

bool isInsideCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

std::size_t startOfCharacter(std::string_view text, std::size_t position) {
    while (position > 0 && position < text.size() && isInsideCharacter(text[position])) {
        --position;
    }
    return position;
}

bool endsParagraph(std::string_view text) {
    return text.empty() || text.back() == '\n' || text.back() == '\r' ||
           (text.size() >= 3 && text.substr(text.size() - 3) == "\u2029");
}

std::optional<CGFloat> boundOf(const std::optional<CGFloat>& width) {
    const bool usable = width.has_value() && *width > 0 && *width < widestBox;
    return usable ? width : std::nullopt;
}

/// A hair more than asked for, so that text measured at its own width fits that width again.
int unitsFor(CGFloat width) {
    return static_cast<int>(std::ceil(width * PANGO_SCALE)) + 1;
}

} // namespace

void TextLayout::Lines::Release::operator()(PangoLayout* layout) const {
    g_object_unref(layout);
}

LineBreaker::LineBreaker(const TextRequest& request, std::string_view text)
    : m_request(request), m_text(text),
      m_font(request.font == nullptr
                 ? UIFont(17, UIFontWeight::regular)
                 : UIFont(request.font->pointSize(), request.font->weight(), request.font->slant())),
      m_width(boundOf(request.width)), m_pieceLength(usualPiece), m_result(std::make_unique<TextLayout::Lines>()) {
    if (!m_width.has_value()) {
        const auto longest = static_cast<std::size_t>(widestBox / std::max(1.0, m_font.pointSize()));
        m_text = m_text.substr(0, startOfCharacter(m_text, longest));
    }
}

std::unique_ptr<TextLayout::Lines> LineBreaker::run() {
    while (!m_done) {
        if (shortensLastLine() && linesLeft() == 1) {
            addShortenedLine();
        } else {
            breakPiece();
        }
    }
    place();
    return std::move(m_result);
}

bool LineBreaker::shortensLastLine() const {
    return m_request.lineBreakMode >= NSLineBreakMode::byClipping;
}

std::size_t LineBreaker::linesLeft() const {
    return m_request.maximumLines <= 0 ? std::numeric_limits<std::size_t>::max()
                                       : static_cast<std::size_t>(m_request.maximumLines) - m_result->lines.size();
}

/// Lays out the next piece and takes the lines that are sure: of a piece inside the text the last one may go on.
void LineBreaker::breakPiece() {
    const std::size_t end = endOfPiece();
    const bool isLast = end == m_text.size();
    const std::string_view mark = directionMark();
    Owner layout = makeLayout(std::string(mark).append(m_text.substr(m_position, end - m_position)));
    pango_layout_set_wrap(layout.get(), m_request.lineBreakMode == NSLineBreakMode::byCharWrapping
                                            ? PANGO_WRAP_CHAR
                                            : PANGO_WRAP_WORD_CHAR);
    const auto count = static_cast<std::size_t>(pango_layout_get_line_count(layout.get()));
    if (isLast && count <= linesLeft()) {
        takeLines(layout.get(), count);
        m_done = true;
    } else {
        const std::size_t wanted = shortensLastLine() ? linesLeft() - 1 : linesLeft();
        const std::size_t taken = std::min(wanted, count - 1);
        takeLines(layout.get(), taken);
        const PangoLayoutLine* next = pango_layout_get_line_readonly(layout.get(), static_cast<int>(taken));
        m_position += static_cast<std::size_t>(next->start_index) - (taken > 0 ? mark.size() : 0);
        m_pieceLength = taken > 0 ? m_pieceLength : m_pieceLength * 2;
        m_done = m_result->truncated = linesLeft() == 0;
    }
    m_result->owners.push_back(std::move(layout));
}

void LineBreaker::takeLines(PangoLayout* layout, std::size_t count) {
    const GSList* line = pango_layout_get_lines_readonly(layout);
    for (std::size_t i = 0; i < count; ++i, line = line->next) {
        addLine(static_cast<PangoLayoutLine*>(line->data));
    }
}

/// Puts all that is left on one line and lets Pango leave out what has no room.
void LineBreaker::addShortenedLine() {
    const std::string_view rest = m_text.substr(m_position);
    for (std::size_t limit = m_width.has_value() ? usualPiece : rest.size();; limit *= 2) {
        Owner layout = makeLayout(std::string(directionMark()) + shortened(rest, limit));
        if (m_request.lineBreakMode == NSLineBreakMode::byClipping) {
            pango_layout_set_width(layout.get(), -1);
        } else {
            pango_layout_set_ellipsize(layout.get(), PANGO_ELLIPSIZE_END);
        }
        PangoLayoutLine* line = pango_layout_get_line_readonly(layout.get(), 0);
        int width = 0;
        pango_layout_get_size(layout.get(), &width, nullptr);
        const bool overflows =
            pango_layout_is_ellipsized(layout.get()) != FALSE || (m_width.has_value() && width > unitsFor(*m_width));
        if (overflows || limit >= rest.size()) {
            addLine(line);
            m_result->owners.push_back(std::move(layout));
            m_result->truncated = overflows || shortened(rest, limit) != rest;
            m_done = true;
            return;
        }
    }
}

/// The part of `rest` that can matter to a line of `limit` bytes, as one paragraph.
std::string LineBreaker::shortened(std::string_view rest, std::size_t limit) const {
    const std::size_t end = std::min(rest.find_first_of("\r\n"), rest.size());
    const bool goesOn = rest.find_first_not_of("\r\n", end) != std::string_view::npos;
    const std::string line(rest.substr(0, startOfCharacter(rest, std::min(end, limit))));
    const bool shows = goesOn && m_request.lineBreakMode == NSLineBreakMode::byTruncatingTail;
    return shows ? line + std::string(ellipsis) : line;
}

std::size_t LineBreaker::endOfPiece() const {
    if (!m_width.has_value()) {
        std::size_t end = m_position;
        for (std::size_t lines = linesLeft(); lines > 0 && end < m_text.size(); --lines) {
            end = std::min(m_text.find('\n', end), m_text.size() - 1) + 1;
        }
        return end;
    }
    if (m_text.size() - m_position <= m_pieceLength + m_pieceLength / 2) {
        return m_text.size();
    }
    const std::size_t end = m_position + m_pieceLength;
    const std::size_t space = m_text.rfind(' ', end);
    return space != std::string_view::npos && space > m_position + m_pieceLength / 2 ? space + 1
                                                                                     : startOfCharacter(m_text, end);
}

/// What goes on inside a paragraph keeps the paragraph's direction.
std::string_view LineBreaker::directionMark() const {
    if (m_result->lines.empty() || endsParagraph(m_text.substr(0, m_position))) {
        return {};
    }
    return m_result->lines.back().rightToLeft ? rightToLeftMark : leftToRightMark;
}

LineBreaker::Owner LineBreaker::makeLayout(const std::string& text) const {
    Owner layout(pango_layout_new(FontLibrary::shared().context()));
    PangoFontDescription* font = FontLibrary::makeDescription(m_font);
    pango_layout_set_font_description(layout.get(), font);
    pango_font_description_free(font);
    PangoAttrList* attributes = pango_attr_list_new();
    pango_attr_list_insert(attributes, pango_attr_insert_hyphens_new(FALSE));
    pango_layout_set_attributes(layout.get(), attributes);
    pango_attr_list_unref(attributes);
    pango_layout_set_justify(layout.get(), m_request.alignment == NSTextAlignment::justified);
    pango_layout_set_width(layout.get(), m_width.has_value() ? unitsFor(*m_width) : -1);
    pango_layout_set_text(layout.get(), text.data(), static_cast<int>(text.size()));
    return layout;
}

void LineBreaker::addLine(PangoLayoutLine* glyphs) {
    PangoRectangle ink;
    PangoRectangle logical;
    pango_layout_line_get_extents(glyphs, &ink, &logical);
    const auto grown = [this](CGFloat usual, CGFloat needed) {
        return needed > usual + tolerance * m_font.pointSize() ? needed : usual;
    };
    TextLine line;
    line.glyphs = glyphs;
    line.width = points(logical.width);
    line.ascent = grown(m_font.ascender(), points(-ink.y));
    line.descent = grown(-m_font.descender(), points(ink.y + ink.height));
    line.rightToLeft = pango_layout_line_get_resolved_direction(glyphs) == PANGO_DIRECTION_RTL;
    m_result->lines.push_back(line);
}

void LineBreaker::place() {
    CGFloat widest = 0;
    for (const TextLine& line : m_result->lines) {
        widest = std::max(widest, line.width);
    }
    const CGFloat box = m_width.value_or(widest);
    CGFloat y = 0;
    for (TextLine& line : m_result->lines) {
        const CGFloat room = std::max(0.0, box - line.width);
        const bool right = m_request.alignment == NSTextAlignment::right ||
                           (line.rightToLeft && m_request.alignment >= NSTextAlignment::justified);
        line.x = right ? room : m_request.alignment == NSTextAlignment::center ? room / 2 : 0;
        line.baseline = y + line.ascent;
        y += line.ascent + line.descent + m_request.lineSpacing;
    }
    m_result->size = {std::min(widest, box), std::max(0.0, y - m_request.lineSpacing)};
}
