#pragma once

#include "platform/graphics/UIFont.h"
#include "platform/graphics/UIImage.h"
#include "platform/uikit/controls/UIControl.h"

class UIImageView;
class UILabel;

/// A control with a title, an image, or neither. Shows the title and image of its normal state.
class UIButton : public UIControl {
public:
    explicit UIButton(const CGRect& frame = {});
    explicit UIButton(const NSCoder& coder);

    void setTitle(const std::string& title);
    [[nodiscard]] std::shared_ptr<UILabel> titleLabel() const { return m_titleLabel; }

    [[nodiscard]] CGSize intrinsicContentSize() const override;
    void layoutSubviews() override;

protected:
    void stateChanged() override;

private:
    void makeParts();
    [[nodiscard]] bool hasTitle() const;
    [[nodiscard]] CGSize imageSize() const;

    std::shared_ptr<UILabel> m_titleLabel;
    std::shared_ptr<UIImageView> m_imageView;
    std::shared_ptr<UIColor> m_titleColor; // null for the kind's own: blue, or white
    UIEdgeInsets m_contentInsets;
    bool m_system = false;
};
