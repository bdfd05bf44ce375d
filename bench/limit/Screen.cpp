#include "bench/limit/Screen.h"

#include "bench/limit/Sizes.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace limit {

namespace {

constexpr unsigned background = 0xE3F0EB;
constexpr unsigned green = 0x2A7460;
constexpr unsigned selectedGreen = 0x4DA289;
constexpr unsigned headerColor = 0x1E4D40;
constexpr unsigned textColor = 0x16302A;
constexpr unsigned greyColor = 0x56655F;
constexpr unsigned quietFill = 0xD2E6DD;
constexpr unsigned white = 0xFFFFFF;

void roundedPath(cairo_t* cairo, double x, double y, double width, double height, double radius) {
    const double quarter = std::acos(0.0);
    cairo_new_path(cairo);
    cairo_arc(cairo, x + width - radius, y + radius, radius, -quarter, 0);
    cairo_arc(cairo, x + width - radius, y + height - radius, radius, 0, quarter);
    cairo_arc(cairo, x + radius, y + height - radius, radius, quarter, 2 * quarter);
    cairo_arc(cairo, x + radius, y + radius, radius, 2 * quarter, 3 * quarter);
    cairo_close_path(cairo);
}

} // namespace

Screen::Screen(Frame& frame, std::filesystem::path bundle)
    : m_frame(frame), m_cairo(frame.cairo()), m_bundle(std::move(bundle)) {}

void Screen::prepare() {
    m_title = layOut("Truths & Dares", Weight::bold, points(26), 0);
    m_button = layOut("Who's Playing?", Weight::semibold, points(17), 0);
    m_arrow = image("list_arrow");
    m_chevron = image("drowdown_down");
}

void Screen::show(const std::string& group, const std::vector<Section>& sections) {
    m_group = layOut(group, Weight::semibold, points(17), 0);
    m_rows.emplace(sections);
    m_offset = -insetTop;
}

void Screen::paintAll() {
    paintHeader();
    paintBox();
    paintTable();
    paintBar();
}

void Screen::paintChange() {
    paintBox();
    paintTable();
}

void Screen::paintHeader() {
    setColor(m_cairo, background);
    cairo_rectangle(m_cairo, 0, 0, screenWidth, boxTop);
    cairo_fill(m_cairo);
    draw(m_cairo, m_title, boxLeft, titleTop, headerColor);
}

void Screen::paintBox() {
    setColor(m_cairo, background);
    cairo_rectangle(m_cairo, 0, boxTop, screenWidth, tableTop - boxTop);
    cairo_fill(m_cairo);
    const int radius = points(12);
    roundedPath(m_cairo, boxLeft, boxTop + points(3), boxWidth, boxHeight, radius);
    cairo_set_source_rgba(m_cairo, 0, 0, 0, 0.3);
    cairo_fill(m_cairo);
    roundedPath(m_cairo, boxLeft, boxTop, boxWidth, boxHeight, radius);
    setColor(m_cairo, green);
    cairo_fill(m_cairo);
    roundedPath(m_cairo, boxLeft + 1.5, boxTop + 1.5, boxWidth - 3, boxHeight - 3, radius - 1.5);
    setColor(m_cairo, white);
    cairo_set_line_width(m_cairo, 3);
    cairo_stroke(m_cairo);
    draw(m_cairo, m_group, boxLeft + points(16), boxTop + (boxHeight - m_group.height) / 2, white);
    paintImage(m_chevron, boxLeft + boxWidth - points(16) - arrowSize, boxTop + (boxHeight - arrowSize) / 2);
}

void Screen::paintTable() {
    paintRows(tableTop, barTop);
    fadeIn();
}

/// What scrolls under the box fades, in six steps of the ground's colour.
void Screen::fadeIn() {
    constexpr double alphas[] = {0.92, 0.80, 0.66, 0.50, 0.34, 0.18};
    constexpr int step = points(2);
    int top = tableTop;
    for (const double alpha : alphas) {
        setColor(m_cairo, background, alpha);
        cairo_rectangle(m_cairo, 0, top, screenWidth, step);
        cairo_fill(m_cairo);
        top += step;
    }
}

void Screen::paintBar() {
    setColor(m_cairo, background);
    cairo_rectangle(m_cairo, 0, barTop, screenWidth, screenHeight - barTop);
    cairo_fill(m_cairo);
    setColor(m_cairo, headerColor, 0.16);
    cairo_rectangle(m_cairo, 0, barTop, screenWidth, points(1));
    cairo_fill(m_cairo);
    roundedPath(m_cairo, buttonLeft, buttonTop, buttonWidth, buttonHeight, points(14));
    setColor(m_cairo, quietFill);
    cairo_fill(m_cairo);
    draw(m_cairo, m_button, (screenWidth - m_button.width) / 2, buttonTop + (buttonHeight - m_button.height) / 2,
         headerColor);
}

bool Screen::scroll(int distance) {
    const int target = std::clamp(m_offset + distance, -insetTop, greatestOffset());
    const int dy = m_offset - target;
    const bool whole = dy == -distance;
    if (dy == 0) {
        return whole;
    }
    m_offset = target;
    m_frame.shift(tableTop, barTop, dy);
    if (dy < 0) {
        paintRows(barTop + dy, barTop);
    }
    paintRows(tableTop, tableTop + softEdge + std::max(dy, 0)); // faded rows moved along
    fadeIn();
    return whole;
}

void Screen::scrollToTop() {
    m_offset = -insetTop;
    paintTable();
}

/// The content's end counts only once rows have been laid out up to there.
int Screen::greatestOffset() {
    const int tableHeight = screenHeight - tableTop;
    m_rows->layOutTo(m_offset + 2 * tableHeight);
    return m_rows->isComplete() ? std::max(-insetTop, m_rows->bottom() + insetBottom - tableHeight)
                                : m_offset + tableHeight;
}

/// `top` and `bottom` on the screen.
void Screen::paintRows(int top, int bottom) {
    const int toScreen = tableTop - m_offset;
    m_rows->layOutTo(bottom - toScreen);
    cairo_save(m_cairo);
    cairo_rectangle(m_cairo, 0, top, screenWidth, bottom - top);
    cairo_clip(m_cairo);
    setColor(m_cairo, background);
    cairo_paint(m_cairo);
    m_rows->forEach(top - toScreen, bottom - toScreen,
                    [&](const Row& row) { paintRow(row, row.top + toScreen, top, bottom); });
    cairo_restore(m_cairo);
}

void Screen::paintRow(const Row& row, int y, int top, int bottom) {
    if (row.item == nullptr) {
        draw(m_cairo, row.title, boxLeft, y + (row.height - row.title.height) / 2, headerColor);
        const int ruleLeft = boxLeft + row.title.width + points(10);
        setColor(m_cairo, headerColor, 0.22);
        cairo_rectangle(m_cairo, ruleLeft, y + row.height / 2 + points(1) / 2, cardLeft + cardWidth - ruleLeft,
                        points(1));
        cairo_fill(m_cairo);
        return;
    }
    const bool selected = row.item->isSelected;
    const int cardTop = y + cardMarginY;
    const int cardHeight = row.height - 2 * cardMarginY;
    paintCard(cardTop, cardHeight, selected ? selectedGreen : white, top, bottom);
    paintImage(image(row.item->icon), cardLeft + points(12), cardTop + (cardHeight - iconSize) / 2);
    const int texts = row.title.height + textGap + row.subtitle.height;
    const int textTop = cardTop + (cardHeight - texts) / 2;
    const int subtitleTop = textTop + row.title.height + textGap;
    if (textTop < bottom && textTop + row.title.height > top) {
        draw(m_cairo, row.title, cardLeft + textLeft, textTop, selected ? white : textColor);
    }
    if (subtitleTop < bottom && subtitleTop + row.subtitle.height > top) {
        draw(m_cairo, row.subtitle, cardLeft + textLeft, subtitleTop, selected ? white : greyColor);
    }
    paintImage(m_arrow, cardLeft + cardWidth - points(12) - arrowSize, cardTop + (cardHeight - arrowSize) / 2);
}

/// Between its corners a card is a plain rectangle.
void Screen::paintCard(int y, int height, unsigned color, int top, int bottom) {
    setColor(m_cairo, color);
    if (top >= y + cardRadius && bottom <= y + height - cardRadius) {
        cairo_rectangle(m_cairo, cardLeft, y, cardWidth, height);
    } else {
        roundedPath(m_cairo, cardLeft, y, cardWidth, height, cardRadius);
    }
    cairo_fill(m_cairo);
}

void Screen::paintImage(cairo_surface_t* image, int x, int y) {
    cairo_set_source_surface(m_cairo, image, x, y);
    cairo_paint(m_cairo);
}

cairo_surface_t* Screen::image(const std::string& name) {
    const auto known = m_images.find(name);
    if (known != m_images.end()) {
        return known->second;
    }
    const auto path = m_bundle / "Assets.xcassets" / (name + ".imageset") / (name + "@3x.png");
    return m_images.emplace(name, cairo_image_surface_create_from_png(path.c_str())).first->second;
}

} // namespace limit
