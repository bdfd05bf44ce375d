#include "platform/uikit/view/UIView.h"

namespace {

std::optional<UIViewContentMode> decodedContentMode(const NSCoder& coder) {
    return coder.choice<UIViewContentMode>("contentMode", {{"scaleToFill", UIViewContentMode::scaleToFill},
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
                                                           {"bottomRight", UIViewContentMode::bottomRight}});
}

constexpr std::size_t horizontal = 0;
constexpr std::size_t vertical = 1;

} // namespace

UIView::UIView(const NSCoder& coder) : UIView(coder.rect("frame").value_or(CGRect{})) {
    m_contentMode = decodedContentMode(coder).value_or(m_contentMode);
    m_layer->setMasksToBounds(coder.boolean("clipsSubviews").value_or(false));
    m_hidden = coder.boolean("hidden").value_or(m_hidden);
    m_alpha = coder.number("alpha").value_or(m_alpha);
    m_tag = static_cast<int>(coder.number("tag").value_or(m_tag));
    m_userInteractionEnabled = coder.boolean("userInteractionEnabled").value_or(m_userInteractionEnabled);
    m_backgroundColor = coder.objectOf<UIColor>("backgroundColor", "a colour").value_or(nullptr);
    m_tintColor = coder.objectOf<UIColor>("tintColor", "a colour").value_or(nullptr);
    m_autoresizes = coder.boolean("translatesAutoresizingMaskIntoConstraints").value_or(m_autoresizes);
    if (const std::optional<UIEdgeInsets> margins = coder.insets("layoutMargins")) {
        setLayoutMargins(*margins);
    }
    decodeAutoresizingMask(coder);
    decodePriorities(coder);
    decodeAccessibility(coder);
}

void UIView::decodeAutoresizingMask(const NSCoder& coder) {
    const NSCoder* mask = coder.child("autoresizingMask", "autoresizingMask");
    if (mask == nullptr) {
        return;
    }
    const auto read = [&](const char* key, unsigned bit) {
        m_autoresizingMask |= mask->boolean(key).value_or(false) ? bit : 0u;
    };
    read("widthSizable", UIViewAutoresizingFlexibleWidth);
    read("heightSizable", UIViewAutoresizingFlexibleHeight);
    read("flexibleMinX", UIViewAutoresizingFlexibleLeftMargin);
    read("flexibleMaxX", UIViewAutoresizingFlexibleRightMargin);
    read("flexibleMinY", UIViewAutoresizingFlexibleTopMargin);
    read("flexibleMaxY", UIViewAutoresizingFlexibleBottomMargin);
}

void UIView::decodePriorities(const NSCoder& coder) {
    const auto read = [&](const char* key, UILayoutPriority& priority) {
        priority = static_cast<UILayoutPriority>(coder.number(key).value_or(static_cast<double>(priority)));
    };
    read("horizontalHuggingPriority", m_hugging[horizontal]);
    read("verticalHuggingPriority", m_hugging[vertical]);
    read("horizontalCompressionResistancePriority", m_compressionResistance[horizontal]);
    read("verticalCompressionResistancePriority", m_compressionResistance[vertical]);
}

void UIView::decodeAccessibility(const NSCoder& coder) {
    if (const NSCoder* accessibility = coder.child("accessibility", "accessibilityConfiguration")) {
        m_accessibilityIdentifier = accessibility->string("identifier").value_or("");
        m_accessibilityLabel = accessibility->string("label").value_or("");
    }
}
