#include "platform/uikit/controls/UIImageView.h"

#include "platform/graphics/Canvas.h"
#include "platform/graphics/DrawingContext.h"
#include "platform/uikit/window/UIScreen.h"

#include <algorithm>

namespace {

using enum UIViewContentMode;

bool isOneOf(UIViewContentMode mode, std::initializer_list<UIViewContentMode> modes) {
    return std::find(modes.begin(), modes.end(), mode) != modes.end();
}

CGSize scaledToAspect(CGSize image, CGSize bounds, UIViewContentMode mode) {
    const CGFloat across = bounds.width / image.width;
    const CGFloat down = bounds.height / image.height;
    const CGFloat factor = mode == scaleAspectFill ? std::max(across, down) : std::min(across, down);
    return {image.width * factor, image.height * factor};
}

/// Where an image of that size stands; in the middle but for the sides that the mode names.
CGRect imageRect(CGSize image, const CGRect& bounds, UIViewContentMode mode) {
    if (isOneOf(mode, {scaleToFill, redraw})) {
        return bounds;
    }
    const bool isScaled = isOneOf(mode, {scaleAspectFit, scaleAspectFill});
    const CGSize size = isScaled ? scaledToAspect(image, bounds.size, mode) : image;
    CGPoint origin{bounds.midX() - size.width / 2, bounds.midY() - size.height / 2};
    if (isOneOf(mode, {left, topLeft, bottomLeft})) {
        origin.x = bounds.minX();
    } else if (isOneOf(mode, {right, topRight, bottomRight})) {
        origin.x = bounds.maxX() - size.width;
    }
    if (isOneOf(mode, {top, topLeft, topRight})) {
        origin.y = bounds.minY();
    } else if (isOneOf(mode, {bottom, bottomLeft, bottomRight})) {
        origin.y = bounds.maxY() - size.height;
    }
    return {origin, size};
}

} // namespace

UIImageView::UIImageView(const CGRect& frame) : UIView(frame) {
    setUserInteractionEnabled(false);
}

UIImageView::UIImageView(const NSCoder& coder)
    : UIView(coder), m_image(coder.objectOf<UIImage>("image", "an image").value_or(nullptr)) {
    setUserInteractionEnabled(coder.boolean("userInteractionEnabled").value_or(false));
    prepareImage();
}

void UIImageView::setImage(const std::shared_ptr<UIImage>& image) {
    if (m_image == image) {
        return;
    }
    const CGSize before = UIImageView::intrinsicContentSize();
    m_image = image;
    prepareImage();
    if (UIImageView::intrinsicContentSize() != before) {
        invalidateIntrinsicContentSize();
    }
    setNeedsDisplay();
}

void UIImageView::prepareImage() const {
    if (m_image) {
        m_image->prepareForDisplay(UIScreen::mainScreen().scale());
    }
}

CGSize UIImageView::intrinsicContentSize() const {
    return m_image ? m_image->size() : UIView::intrinsicContentSize();
}

// Drawing.

CGRect UIImageView::drawnRect() const {
    const CGSize size = m_image && !clipsToBounds() ? m_image->size() : CGSize{};
    if (!(size.width > 0 && size.height > 0)) {
        return bounds();
    }
    return bounds().unionWith(imageRect(size, bounds(), contentMode()));
}

void UIImageView::drawRect(const CGRect& rect) {
    UIView::drawRect(rect);
    const DrawingContext* context = DrawingContext::current();
    const CGSize size = m_image ? m_image->size() : CGSize{};
    if (context == nullptr || !(size.width > 0 && size.height > 0)) {
        return;
    }
    context->canvas().drawImage(*m_image, imageRect(size, bounds(), contentMode()));
}
