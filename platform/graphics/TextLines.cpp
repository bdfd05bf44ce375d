#include "platform/graphics/TextLines.h"

#include "platform/graphics/FontLibrary.h"

#include <pango/pangocairo.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <string>

namespace {

/// Bytes laid out at a time: Pango's work on one long word grows with the square of them.
constexpr std::size_t usualPiece = 512;
/// A line with more bytes than this is broken, or ends in an ellipsis, whatever its width.
constexpr std::size_t longestLine = 4096;
/// Wider boxes, in points, count as unbounded: Pango measures in 1/1024 of a point in an int.
constexpr CGFloat widestBox = 1'000'000;
constexpr std::string_view leftToRightMark = "\u200E";
constexpr std::string_view rightToLeftMark = "\u200F";
constexpr std::string_view ellipsis = "…";

CGFloat points(int units) {
    return static_cast<CGFloat>(units) / PANGO_SCALE;
}

/// The first `length` bytes, or up to three less: no character is cut.
std::string_view firstBytes(std::string_view text, std::size_t length) {
    while (length > 0 && length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80) {
        --length;
    }
    return text.substr(0, length);
}

/// The first bytes up to a space in their second half, if there is one: words are not cut, but for very long ones.
std::string_view firstWords(std::string_view text, std::size_t length) {
    const std::string_view bytes = firstBytes(text, length);
    const std::size_t space = bytes.size() == text.size() ? std::string_view::npos : bytes.rfind(' ');
    return space != std::string_view::npos && space > length / 2 ? bytes.substr(0, space + 1) : bytes;
}

bool endsParagraph(std::string_view text) {
    return text.empty() || text.back() == '\n' || text.back() == '\r' || text.ends_with("\u2029");
}

std::optional<CGFloat> boundOf(const std::optional<CGFloat>& width) {
    const bool usable = width.has_value() && *width > 0 && *width < widestBox;
    return usable ? width : std::nullopt;
}

/// A hair more than asked for, so that text measured at its own width fits that width again.
int unitsFor(CGFloat width) {
    return static_cast<int>(std::ceil(width * PANGO_SCALE)) + 1;
}

/// Makes the lines of one layout. Both the request and the text outlive it.
class LineBreaker {
public:
    LineBreaker(const TextRequest& request, std::string_view text)
        : m_request(request), m_text(text), m_font(*request.font), m_width(boundOf(request.width)) {
        const auto widest = static_cast<std::size_t>(widestBox / std::max(1.0, m_font.pointSize()));
        m_longest = std::min(longestLine, widest);
        m_pieceLength = m_width.has_value() ? std::min(usualPiece, m_longest) : m_longest;
        m_text = m_width.has_value() ? m_text : firstBytes(m_text, widest);
        m_result->ascent = m_font.ascender();
        m_result->descent = -m_font.descender();
    }

    std::unique_ptr<TextLayout::Lines> run() {
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

private:
    using Owner = TextLayout::Lines::Owner;

    [[nodiscard]] bool shortensLastLine() const { return m_request.lineBreakMode >= NSLineBreakMode::byClipping; }
    [[nodiscard]] std::size_t linesLeft() const {
        return m_request.maximumLines <= 0 ? std::numeric_limits<std::size_t>::max()
                                           : static_cast<std::size_t>(m_request.maximumLines) - m_result->lines.size();
    }
    void breakPiece();
    [[nodiscard]] std::size_t linesWanted(std::size_t count, bool isLast) const;
    void addShortenedLine();
    [[nodiscard]] std::string shortened(std::string_view rest) const;
    [[nodiscard]] std::string_view directionMark() const;
    [[nodiscard]] Owner makeLayout(std::string_view text) const;
    void addLine(PangoLayoutLine* glyphs);
    void place();

    const TextRequest& m_request;
    std::string_view m_text;
    const UIFont& m_font;
    std::optional<CGFloat> m_width; // absent for unbounded
    std::size_t m_longest = 0;      // bytes of a line
    std::size_t m_pieceLength = 0;
    std::size_t m_position = 0; // in the text, where the next line begins
    bool m_done = false;
    std::unique_ptr<TextLayout::Lines> m_result = std::make_unique<TextLayout::Lines>();
};

/// Lays out the next piece and takes the lines that are sure: of a piece inside the text the last one may go on.
void LineBreaker::breakPiece() {
    const std::string_view rest = m_text.substr(m_position);
    const std::string_view piece = firstWords(rest, m_pieceLength);
    const bool isLast = piece.size() == rest.size();
    Owner layout = makeLayout(piece);
    pango_layout_set_wrap(layout.get(), m_request.lineBreakMode == NSLineBreakMode::byCharWrapping
                                            ? PANGO_WRAP_CHAR
                                            : PANGO_WRAP_WORD_CHAR);
    const auto count = static_cast<std::size_t>(pango_layout_get_line_count(layout.get()));
    if (count == 1 && !isLast && m_pieceLength < m_longest) {
        m_pieceLength = std::min(m_pieceLength * 2, m_longest);
        return;
    }
    const std::size_t wanted = linesWanted(count, isLast);
    const std::size_t markLength = directionMark().size();
    const GSList* line = pango_layout_get_lines_readonly(layout.get());
    for (std::size_t i = 0; i < wanted; ++i, line = line->next) {
        addLine(static_cast<PangoLayoutLine*>(line->data));
    }
    m_result->owners.push_back(std::move(layout));
    const bool isWhole = line == nullptr && isLast;
    m_done = linesLeft() == 0 || isWhole;
    m_result->isCut = m_done && !isWhole;
    m_position += line == nullptr
                      ? piece.size()
                      : static_cast<std::size_t>(static_cast<PangoLayoutLine*>(line->data)->start_index) - markLength;
}

/// How many of a piece's lines to take; at least one.
std::size_t LineBreaker::linesWanted(std::size_t count, bool isLast) const {
    if (isLast && count <= linesLeft()) {
        return count;
    }
    const std::size_t room = shortensLastLine() ? linesLeft() - 1 : linesLeft();
    return std::min(room, isLast ? count : std::max<std::size_t>(1, count - 1));
}

/// Puts all that is left on one line and lets Pango leave out what has no room.
void LineBreaker::addShortenedLine() {
    const std::string_view rest = m_text.substr(m_position);
    const std::string line = shortened(rest);
    Owner layout = makeLayout(line);
    if (m_request.lineBreakMode == NSLineBreakMode::byClipping) {
        pango_layout_set_width(layout.get(), -1);
    } else {
        pango_layout_set_ellipsize(layout.get(), PANGO_ELLIPSIZE_END);
    }
    addLine(pango_layout_get_line_readonly(layout.get(), 0));
    const bool isClipped = m_width.has_value() && m_result->lines.back().width > *m_width + 0.01;
    m_result->isCut = rest.substr(0, line.size()) != line || isClipped || pango_layout_is_ellipsized(layout.get()) != 0;
    m_result->owners.push_back(std::move(layout));
    m_done = true;
}

/// The part of `rest` that can matter to one line, as one paragraph.
std::string LineBreaker::shortened(std::string_view rest) const {
    const std::string_view paragraph = rest.substr(0, rest.find_first_of("\r\n"));
    std::string line(firstBytes(paragraph, m_longest));
    const bool goesOn =
        line.size() < paragraph.size() || rest.find_first_not_of("\r\n", paragraph.size()) != std::string_view::npos;
    if (goesOn && m_request.lineBreakMode == NSLineBreakMode::byTruncatingTail) {
        line += ellipsis;
    }
    return line;
}

/// What goes on inside a paragraph keeps the paragraph's direction.
std::string_view LineBreaker::directionMark() const {
    if (m_result->lines.empty() || endsParagraph(m_text.substr(0, m_position))) {
        return {};
    }
    return m_result->lines.back().rightToLeft ? rightToLeftMark : leftToRightMark;
}

LineBreaker::Owner LineBreaker::makeLayout(std::string_view text) const {
    const std::string marked = std::string(directionMark()).append(text);
    Owner layout(pango_layout_new(FontLibrary::shared().contextFor(marked)));
    PangoFontDescription* font = FontLibrary::makeDescription(m_font);
    pango_layout_set_font_description(layout.get(), font);
    pango_font_description_free(font);
    PangoAttrList* attributes = pango_attr_list_new();
    pango_attr_list_insert(attributes, pango_attr_insert_hyphens_new(FALSE));
    pango_layout_set_attributes(layout.get(), attributes);
    pango_attr_list_unref(attributes);
    pango_layout_set_justify(layout.get(), m_request.alignment == NSTextAlignment::justified);
    pango_layout_set_width(layout.get(), m_width.has_value() ? unitsFor(*m_width) : -1);
    pango_layout_set_text(layout.get(), marked.data(), static_cast<int>(marked.size()));
    return layout;
}

/// Letters that the interface's fonts lack may stand higher and hang lower than Inter's: they make the lines higher.
/// The line height of their own font would not do, which is up to twice that of Inter.
void LineBreaker::addLine(PangoLayoutLine* glyphs) {
    PangoRectangle ink;
    PangoRectangle logical;
    const bool isInterfaceFont = pango_layout_get_context(glyphs->layout) == FontLibrary::shared().contextFor({});
    pango_layout_line_get_extents(glyphs, isInterfaceFont ? nullptr : &ink, &logical);
    TextLine line;
    line.glyphs = glyphs;
    line.width = points(logical.width);
    line.rightToLeft = pango_layout_line_get_resolved_direction(glyphs) == PANGO_DIRECTION_RTL;
    m_result->lines.push_back(line);
    if (!isInterfaceFont) {
        m_result->ascent = std::max(m_result->ascent, points(PANGO_ASCENT(ink)));
        m_result->descent = std::max(m_result->descent, points(PANGO_DESCENT(ink)));
    }
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
        line.baseline = y + m_result->ascent;
        y += m_result->ascent + m_result->descent + m_request.lineSpacing;
    }
    m_result->size = {std::min(widest, box), std::max(0.0, y - m_request.lineSpacing)};
}

} // namespace

void TextLayout::Lines::Release::operator()(PangoLayout* layout) const {
    g_object_unref(layout);
}

std::unique_ptr<TextLayout::Lines> breakIntoLines(const TextRequest& request, std::string_view text) {
    return LineBreaker(request, text).run();
}

bool hasFontFor(const std::string& character) {
    static std::map<std::string, bool> known;
    const auto [entry, isNew] = known.emplace(character, true);
    if (isNew) {
        const TextLayout::Lines::Owner layout(pango_layout_new(FontLibrary::shared().contextFor(character)));
        pango_layout_set_text(layout.get(), character.data(), static_cast<int>(character.size()));
        entry->second = pango_layout_get_unknown_glyphs_count(layout.get()) == 0;
    }
    return entry->second;
}
