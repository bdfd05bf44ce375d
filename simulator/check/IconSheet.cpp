#include "simulator/check/IconSheet.h"

#include "platform/graphics/cairo/CairoCanvas.h"
#include "platform/uikit/controls/UIImageView.h"
#include "platform/uikit/controls/UILabel.h"
#include "platform/uikit/window/ViewPainter.h"

#include <algorithm>

namespace {

constexpr std::size_t columns = 6;
constexpr CGFloat cellWidth = 120;
constexpr CGFloat cellHeight = 84;
constexpr CGFloat iconSize = 44;
constexpr CGFloat margin = 16;
constexpr int scale = 2;

void addCell(UIView& sheet, const std::string& name, CGPoint at) {
    const auto icon =
        std::make_shared<UIImageView>(CGRectMake(at.x + (cellWidth - iconSize) / 2, at.y, iconSize, iconSize));
    icon->setContentMode(UIViewContentMode::scaleAspectFit);
    icon->setImage(UIImage::imageNamed(name));
    sheet.addSubview(icon);
    const auto label = std::make_shared<UILabel>(CGRectMake(at.x, at.y + iconSize + 6, cellWidth, 16));
    label->setText(name);
    label->setFont(UIFont::systemFontOfSize(12));
    label->setTextColor(UIColor::blackColor());
    label->setTextAlignment(NSTextAlignment::center);
    sheet.addSubview(label);
}

} // namespace

Bitmap iconSheet(const std::vector<std::string>& names) {
    const auto rows = static_cast<CGFloat>((names.size() + columns - 1) / columns);
    const CGRect bounds = CGRectMake(0, 0, columns * cellWidth + 2 * margin, rows * cellHeight + 2 * margin);
    UIView sheet(bounds);
    sheet.setBackgroundColor(UIColor::whiteColor());
    for (std::size_t i = 0; i < names.size(); ++i) {
        addCell(sheet, names[i],
                {margin + static_cast<CGFloat>(i % columns) * cellWidth,
                 margin + static_cast<CGFloat>(i / columns) * cellHeight});
    }
    Bitmap picture(static_cast<int>(bounds.size.width) * scale, static_cast<int>(bounds.size.height) * scale);
    CairoCanvas canvas(picture, scale);
    ViewPainter(canvas, UIUserInterfaceStyle::light).paint(sheet, bounds);
    return picture;
}
