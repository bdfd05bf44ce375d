#include "platform/uikit/controls/UIButton.h"

#include "platform/uikit/controls/UIImageView.h"
#include "platform/uikit/controls/UILabel.h"
#include "platform/uikit/window/UIScreen.h"

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

bool UIButton::hasTitle() const {
    return !m_titleLabel->text().value_or("").empty();
}

CGSize UIButton::imageSize() const {
    return m_imageView->image() ? m_imageView->image()->size() : CGSize{};
}

void UIButton::setTitle(const std::string& title) {
    m_titleLabel->setText(title);
    invalidateIntrinsicContentSize();
    setNeedsLayout();
}

void UIButton::stateChanged() {
    const CGFloat alpha = isHighlighted() || !isEnabled() ? dimmed : 1;
    m_titleLabel->setAlpha(alpha);
    m_imageView->setAlpha(alpha);
    setNeedsDisplay();
}

CGSize UIButton::intrinsicContentSize() const {
    UIEdgeInsets insets = m_contentInsets;
    if (insets == UIEdgeInsets{} && hasTitle()) {
        insets = {titlePadding, 0, titlePadding, 0};
    }
    const CGSize image = imageSize();
    const CGSize text = m_titleLabel->intrinsicContentSize();
    const CGFloat width = insets.left + image.width + text.width + insets.right;
    return {hasTitle() ? std::max(width, smallestTitleWidth) : width,
            insets.top + std::max(image.height, text.height) + insets.bottom};
}

void UIButton::layoutSubviews() {
    UIControl::layoutSubviews();
    const auto ownColor = m_system ? UIColor::systemColorNamed("systemBlueColor") : UIColor::whiteColor();
    m_titleLabel->setTextColor(m_titleColor ? m_titleColor : ownColor);
    const PixelGrid& grid = UIScreen::mainScreen().grid();
    const CGRect content = UIEdgeInsetsInsetRect(bounds(), m_contentInsets);
    const CGSize image = imageSize();
    CGSize text = m_titleLabel->intrinsicContentSize();
    text.width = std::clamp<CGFloat>(content.size.width - image.width, 0, text.width);
    const CGFloat left = content.midX() - (image.width + text.width) / 2;
    const auto placed = [&](CGFloat x, CGSize size) {
        return grid.snapped(CGRectMake(x, content.midY() - size.height / 2, size.width, size.height));
    };
    m_imageView->setFrame(placed(left, image));
    m_titleLabel->setFrame(placed(left + image.width, text));
}
