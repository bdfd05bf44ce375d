#include "platform/uikit/controls/UIImageView.h"

#include "platform/graphics/Canvas.h"
#include "platform/graphics/DrawingContext.h"
#include "platform/uikit/window/UIScreen.h"

#include <algorithm>

namespace {

CGRect centred(CGSize size, const CGRect& bounds) {
    return CGRectMake(bounds.midX() - size.width / 2, bounds.midY() - size.height / 2, size.width, size.height);
}

CGRect scaledToAspect(CGSize image, const CGRect& bounds, bool fill) {
    const CGFloat horizontal = bounds.size.width / image.width;
    const CGFloat vertical = bounds.size.height / image.height;
    const CGFloat factor = fill ? std::max(horizontal, vertical) : std::min(horizontal, vertical);
    return centred({image.width * factor, image.height * factor}, bounds);
}

/// Where an image of its natural size stands for the modes that do not scale it.
CGRect placed(CGSize image, const CGRect& bounds, UIViewContentMode mode) {
    using enum UIViewContentMode;
    CGRect rect = centred(image, bounds);
    if (mode == left || mode == topLeft || mode == bottomLeft) {
        rect.origin.x = bounds.minX();
    }
    if (mode == right || mode == topRight || mode == bottomRight) {
        rect.origin.x = bounds.maxX() - image.width;
    }
    if (mode == top || mode == topLeft || mode == topRight) {
        rect.origin.y = bounds.minY();
    }
    if (mode == bottom || mode == bottomLeft || mode == bottomRight) {
        rect.origin.y = bounds.maxY() - image.height;
    }
    return rect;
}

CGRect imageRect(CGSize image, const CGRect& bounds, UIViewContentMode mode) {
    switch (mode) {
    case UIViewContentMode::scaleToFill:
    case UIViewContentMode::redraw:
        return bounds;
    case UIViewContentMode::scaleAspectFit:
        return scaledToAspect(image, bounds, false);
    case UIViewContentMode::scaleAspectFill:
        return scaledToAspect(image, bounds, true);
    default:
        return placed(image, bounds, mode);
    }
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
