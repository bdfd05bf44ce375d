#include "simulator/pictures/ContactSheet.h"

#include "platform/graphics/cairo/CairoCanvas.h"
#include "platform/uikit/window/ViewPainter.h"
#include "simulator/pictures/BackdropViews.h"

#include <algorithm>

namespace {

constexpr int gap = 24;
constexpr int captionHeight = 28;
constexpr int columns = 4;

void copyInto(Bitmap& sheet, const Bitmap& picture, int left, int top) {
    for (int y = 0; y < picture.height(); ++y) {
        std::copy_n(picture.row(y), picture.width(), sheet.row(top + y) + left);
    }
}

} // namespace

Bitmap ContactSheet::picture() const {
    const int count = static_cast<int>(m_cells.size());
    const int across = m_cells.front().picture.width() + gap;
    const int down = captionHeight + m_cells.front().picture.height() + gap;
    Bitmap sheet(gap + std::min(count, columns) * across, gap + (count + columns - 1) / columns * down);
    CairoCanvas(sheet, 1).fillRect(CGRectMake(0, 0, sheet.width(), sheet.height()),
                                   systemColor("systemGray5Color")->components());
    for (int i = 0; i < count; ++i) {
        const Cell& cell = m_cells[static_cast<std::size_t>(i)];
        const int left = gap + i % columns * across;
        const int top = gap + i / columns * down;
        const auto label = caption(cell.caption, 13, UIFontWeight::medium, systemColor("darkGrayColor"));
        label->setFrame(label->bounds().offsetBy(left, top));
        CairoCanvas canvas(sheet, 1);
        ViewPainter(canvas, UIUserInterfaceStyle::light).paint(*label, label->frame());
        copyInto(sheet, cell.picture, left, top + captionHeight);
    }
    return sheet;
}
