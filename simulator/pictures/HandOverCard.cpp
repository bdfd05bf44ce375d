#include "platform/foundation/NSURL.h"
#include "simulator/pictures/BackdropViews.h"

#include <algorithm>

namespace {

constexpr CGFloat edge = 12;       // from the screen's sides
constexpr CGFloat padding = 14;    // from the card's sides to its texts
constexpr CGFloat nameWidth = 112; // the column of the items' names
constexpr CGFloat lineGap = 3;

std::shared_ptr<UIView> makeItem(const NSURLQueryItem& item, CGFloat width) {
    auto row = std::make_shared<UIView>();
    const auto name = caption(item.name, 12, UIFontWeight::regular, quietColor());
    const auto value = caption(item.value.value_or("(no value)"), 12, UIFontWeight::semibold, systemColor("labelColor"),
                               width - nameWidth);
    value->setFrame(value->bounds().offsetBy(nameWidth, 0));
    row->addSubview(name);
    row->addSubview(value);
    row->setFrame(CGRectMake(0, 0, width, std::max(name->frame().maxY(), value->frame().maxY())));
    return row;
}

} // namespace

std::shared_ptr<UIView> makeHandOverCard(const Device& device, const NSURL& link) {
    const NSURLComponents parts = NSURLComponents::componentsWithURL(link);
    const CGFloat width = std::min(device.size.width - 2 * edge, 460.0);
    const CGFloat inside = width - 2 * padding;
    auto card = area({}, systemColor("secondarySystemGroupedBackgroundColor"), 18);
    card->layer()->setBorderWidth(1);
    card->layer()->setBorderColor(systemColor("opaqueSeparatorColor"));
    std::vector<std::shared_ptr<UIView>> rows{
        caption("Opening " + parts.host, 15, UIFontWeight::semibold, systemColor("labelColor"), inside)};
    for (const NSURLQueryItem& item : parts.queryItems) {
        rows.push_back(makeItem(item, inside));
    }
    CGFloat top = padding;
    for (const std::shared_ptr<UIView>& row : rows) {
        row->setFrame(row->bounds().offsetBy(padding, top));
        card->addSubview(row);
        top = row->frame().maxY() + (row == rows.front() ? 2 * lineGap : lineGap);
    }
    card->setFrame(
        CGRectMake((device.size.width - width) / 2, device.safeArea.top + 6, width, top + padding - lineGap));
    return card;
}
