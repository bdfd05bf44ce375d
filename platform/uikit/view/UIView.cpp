#include "platform/uikit/view/UIView.h"

#include "platform/uikit/controllers/UIViewController.h"
#include "platform/uikit/view/ViewSystem.h"

namespace {

UIViewContentMode decodedContentMode(const NSCoder& coder) {
    return coder
        .choice<UIViewContentMode>("contentMode", {{"scaleToFill", UIViewContentMode::scaleToFill},
                                                   {"scaleAspectFit", UIViewContentMode::scaleAspectFit},
                                                   {"scaleAspectFill", UIViewContentMode::scaleAspectFill},
                                                   {"redraw", UIViewContentMode::redraw},
                                                   {"center", UIViewContentMode::center},
                                                   {"top", UIViewContentMode::top},
                                                   {"bottom", UIViewContentMode::bottom},
                                                   {"left", UIViewContentMode::left},
                                                   {"right", UIViewContentMode::right},
                                                   {"topLeft", UIViewContentMode::topLeft},
                                                   {"topRight", UIViewContentMode::topRight},
                                                   {"bottomLeft", UIViewContentMode::bottomLeft},
                                                   {"bottomRight", UIViewContentMode::bottomRight}})
        .value_or(UIViewContentMode::scaleToFill);
}

unsigned decodedAutoresizingMask(const NSCoder& coder) {
    constexpr std::pair<const char*, unsigned> bits[] = {{"widthSizable", UIViewAutoresizingFlexibleWidth},
                                                         {"heightSizable", UIViewAutoresizingFlexibleHeight},
                                                         {"flexibleMinX", UIViewAutoresizingFlexibleLeftMargin},
                                                         {"flexibleMaxX", UIViewAutoresizingFlexibleRightMargin},
                                                         {"flexibleMinY", UIViewAutoresizingFlexibleTopMargin},
                                                         {"flexibleMaxY", UIViewAutoresizingFlexibleBottomMargin}};
    unsigned mask = UIViewAutoresizingNone;
    if (const NSCoder* words = coder.child("autoresizingMask", "autoresizingMask")) {
        for (const auto& [key, bit] : bits) {
            mask |= words->boolean(key).value_or(false) ? bit : 0u;
        }
    }
    return mask;
}

void decodePriority(const NSCoder& coder, const char* key, UILayoutPriority& priority) {
    priority = static_cast<UILayoutPriority>(coder.number(key).value_or(static_cast<double>(priority)));
}

} // namespace

UIView::UIView(const CGRect& frame)
    : m_bounds{{0, 0}, frame.size}, m_center{frame.midX(), frame.midY()}, m_layer(std::make_shared<CALayer>(this)) {}

UIView::UIView(const NSCoder& coder) : UIView(coder.rect("frame").value_or(CGRect{})) {
    m_contentMode = decodedContentMode(coder);
    m_layer->setMasksToBounds(coder.boolean("clipsSubviews").value_or(false));
    m_hidden = coder.boolean("hidden").value_or(m_hidden);
    m_alpha = coder.number("alpha").value_or(m_alpha);
    m_tag = static_cast<int>(coder.number("tag").value_or(m_tag));
    m_userInteractionEnabled = coder.boolean("userInteractionEnabled").value_or(m_userInteractionEnabled);
    m_backgroundColor = coder.objectOf<UIColor>("backgroundColor", "a colour").value_or(nullptr);
    m_autoresizes = coder.boolean("translatesAutoresizingMaskIntoConstraints").value_or(m_autoresizes);
    m_autoresizingMask = decodedAutoresizingMask(coder);
    if (const std::optional<UIEdgeInsets> margins = coder.insets("layoutMargins")) {
        setLayoutMargins(*margins);
    }
    decodePriority(coder, "horizontalHuggingPriority", m_horizontalPriorities.hugging);
    decodePriority(coder, "verticalHuggingPriority", m_verticalPriorities.hugging);
    decodePriority(coder, "horizontalCompressionResistancePriority", m_horizontalPriorities.compressionResistance);
    decodePriority(coder, "verticalCompressionResistancePriority", m_verticalPriorities.compressionResistance);
    if (const NSCoder* accessibility = coder.child("accessibility", "accessibilityConfiguration")) {
        m_accessibilityIdentifier = accessibility->string("identifier").value_or("");
        m_accessibilityLabel = accessibility->string("label").value_or("");
    }
}

UIView::~UIView() {
    for (const std::shared_ptr<UIView>& subview : m_subviews) {
        subview->m_superview = nullptr;
        subview->systemStructureChanged();
    }
    m_layer->detach();
}

// Look.

void UIView::setBackgroundColor(const std::shared_ptr<UIColor>& color) {
    if (!sameColor(m_backgroundColor, color)) {
        invalidate(m_layer->shadowRect()); // a view without a background casts none
        m_backgroundColor = color;
        invalidate(m_bounds.unionWith(m_layer->shadowRect()));
    }
}

// Drawing.

void UIView::invalidate(const CGRect& rect, UIView* drawn) {
    if (!isDrawn() || m_superview == nullptr) {
        return;
    }
    const CGRect visible = clipsToBounds() ? rect.intersection(m_bounds) : rect;
    if (!visible.isEmpty()) {
        m_superview->invalidate(visible.offsetBy(shiftToSuperview()), drawn);
    }
}

CGRect UIView::paintedRect() const {
    CGRect painted = drawnRect().unionWith(m_layer->shadowRect());
    if (clipsToBounds()) {
        return painted;
    }
    for (const std::shared_ptr<UIView>& subview : m_subviews) {
        if (subview->isDrawn()) {
            painted = painted.unionWith(subview->paintedRect().offsetBy(subview->shiftToSuperview()));
        }
    }
    return painted;
}

// Touches.

bool UIView::pointInsideWithEvent(CGPoint point, UIEvent* /*event*/) const {
    return m_bounds.contains(point);
}

std::shared_ptr<UIView> UIView::hitTestWithEvent(CGPoint point, UIEvent* event) {
    if (!isDrawn() || !m_userInteractionEnabled || !pointInsideWithEvent(point, event)) {
        return nullptr;
    }
    for (auto subview = m_subviews.rbegin(); subview != m_subviews.rend(); ++subview) {
        const CGPoint inSubview = point - (*subview)->shiftToSuperview();
        if (std::shared_ptr<UIView> hit = (*subview)->hitTestWithEvent(inSubview, event)) {
            return hit;
        }
    }
    return strong(this);
}

UIResponder* UIView::nextResponder() const {
    if (m_viewController != nullptr) {
        return m_viewController;
    }
    return m_superview;
}
