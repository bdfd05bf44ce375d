#include "simulator/pictures/ContactSheet.h"

#include "platform/graphics/cairo/CairoCanvas.h"
#include "platform/uikit/window/ViewPainter.h"
#include "simulator/pictures/BackdropViews.h"

#include <algorithm>

namespace {

constexpr int gap = 24;
constexpr int captionHeight = 28;

void copyInto(Bitmap& sheet, const Bitmap& picture, int left, int top) {
    for (int y = 0; y < picture.height(); ++y) {
        std::copy_n(picture.row(y), picture.width(), sheet.row(top + y) + left);
    }
}

} // namespace

int ContactSheet::width() const {
    int width = gap;
    for (const Cell& cell : m_cells) {
        width += cell.picture.width() + gap;
    }
    return width;
}

int ContactSheet::height() const {
    int height = 0;
    for (const Cell& cell : m_cells) {
        height = std::max(height, cell.picture.height());
    }
    return height + captionHeight + gap;
}

void ContactSheet::paint(Bitmap& sheet, int top) const {
    int left = gap;
    for (const Cell& cell : m_cells) {
        const auto label = caption(cell.caption, 13, UIFontWeight::medium, systemColor("darkGrayColor"));
        label->setFrame(label->bounds().offsetBy(left, top));
        CairoCanvas canvas(sheet, 1);
        ViewPainter(canvas, UIUserInterfaceStyle::light).paint(*label, label->frame());
        copyInto(sheet, cell.picture, left, top + captionHeight);
        left += cell.picture.width() + gap;
    }
}

Bitmap ContactSheet::stack(const std::vector<ContactSheet>& rows) {
    int width = 0;
    int height = gap;
    for (const ContactSheet& row : rows) {
        width = std::max(width, row.width());
        height += row.height();
    }
    Bitmap sheet(width, height);
    CairoCanvas(sheet, 1).fillRect(CGRectMake(0, 0, width, height), systemColor("systemGray5Color")->components());
    int top = gap;
    for (const ContactSheet& row : rows) {
        row.paint(sheet, top);
        top += row.height();
    }
    return sheet;
}
