#include "platform/uikit/controls/UIImageView.h"

#include "platform/uikit/window/UIScreen.h"

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
