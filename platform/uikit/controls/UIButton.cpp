#include "platform/uikit/controls/UIButton.h"

#include "platform/uikit/controls/UIImageView.h"
#include "platform/uikit/controls/UILabel.h"
#include "platform/uikit/view/PixelGrid.h"

#include <algorithm>

namespace {

constexpr CGFloat dimmed = 0.3;     // title and image of a touched or disabled button
constexpr CGFloat titlePadding = 6; // above and below a title without insets of its own
constexpr CGFloat smallestTitleWidth = 30;

} // namespace

UIButton::UIButton(const CGRect& frame) : UIControl(frame) {
    makeParts();
}

UIButton::UIButton(const NSCoder& coder) : UIControl(coder) {
    makeParts();
    m_system = coder.string("buttonType").value_or("custom") != "custom"; // the others differ in what they show
    m_contentInsets = coder.insets("contentEdgeInsets").value_or(m_contentInsets);
    if (const std::optional<std::shared_ptr<UIFont>> font = coder.objectOf<UIFont>("fontDescription", "a font")) {
        m_titleLabel->setFont(*font);
    }
    if (const NSCoder* state = coder.child("state", "normal")) {
        m_titleLabel->setText(state->string("title"));
        m_imageView->setImage(state->objectOf<UIImage>("image", "an image").value_or(nullptr));
        m_titleColor = state->objectOf<UIColor>("titleColor", "a colour").value_or(nullptr);
    }
    UIButton::stateChanged();
}

void UIButton::makeParts() {
    m_titleLabel = std::make_shared<UILabel>();
    m_imageView = std::make_shared<UIImageView>();
    addSubview(m_imageView);
    addSubview(m_titleLabel);
}

std::string UIButton::title() const {
    return m_titleLabel->text().value_or("");
}

void UIButton::setTitle(const std::string& title) {
    m_titleLabel->setText(title);
    invalidateIntrinsicContentSize();
    setNeedsLayout();
}

void UIButton::setImage(const std::shared_ptr<UIImage>& image) {
    m_imageView->setImage(image);
    invalidateIntrinsicContentSize();
    setNeedsLayout();
}

std::shared_ptr<UIImage> UIButton::image() const {
    return m_imageView->image();
}

void UIButton::stateChanged() {
    const CGFloat alpha = isHighlighted() || !isEnabled() ? dimmed : 1;
    m_titleLabel->setAlpha(alpha);
    m_imageView->setAlpha(alpha);
    setNeedsDisplay();
}

UIEdgeInsets UIButton::contentInsets() const {
    if (m_contentInsets == UIEdgeInsets{} && !title().empty()) {
        return {titlePadding, 0, titlePadding, 0};
    }
    return m_contentInsets;
}

CGSize UIButton::intrinsicContentSize() const {
    const CGSize image = this->image() ? this->image()->size() : CGSize{};
    const CGSize text = m_titleLabel->intrinsicContentSize();
    const UIEdgeInsets insets = contentInsets();
    const CGFloat width = insets.left + image.width + text.width + insets.right;
    return {title().empty() ? width : std::max(width, smallestTitleWidth),
            insets.top + std::max(image.height, text.height) + insets.bottom};
}

void UIButton::layoutSubviews() {
    UIControl::layoutSubviews();
    m_titleLabel->setTextColor(m_titleColor ? m_titleColor : m_system ? tintColor() : UIColor::whiteColor());
    const CGRect content = UIEdgeInsetsInsetRect(bounds(), m_contentInsets);
    const CGSize image = this->image() ? this->image()->size() : CGSize{};
    CGSize text = m_titleLabel->intrinsicContentSize();
    text.width = std::clamp<CGFloat>(content.size.width - image.width, 0, text.width);
    const CGFloat left = content.midX() - (image.width + text.width) / 2;
    m_imageView->setFrame(
        roundedToPixel(CGRectMake(left, content.midY() - image.height / 2, image.width, image.height)));
    m_titleLabel->setFrame(
        roundedToPixel(CGRectMake(left + image.width, content.midY() - text.height / 2, text.width, text.height)));
}
