#pragma once

#include "platform/graphics/UIImage.h"
#include "platform/uikit/view/UIView.h"

/// Shows one image, or nothing. Does not take touches unless told to.
class UIImageView : public UIView {
public:
    explicit UIImageView(const CGRect& frame = {});
    explicit UIImageView(const NSCoder& coder);

    /// Null when there is none.
    [[nodiscard]] std::shared_ptr<UIImage> image() const { return m_image; }
    void setImage(const std::shared_ptr<UIImage>& image);

    [[nodiscard]] CGSize intrinsicContentSize() const override;
    void drawRect(const CGRect& rect) override;
    /// An image may stand out of a view that does not clip.
    [[nodiscard]] CGRect drawnRect() const override;

private:
    void prepareImage() const;

    std::shared_ptr<UIImage> m_image;
};
