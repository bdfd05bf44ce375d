#pragma once

#include "platform/uikit/controls/UILabel.h"

#include <memory>
#include <string>

// What the conversation is put together from.

/// A colour of the platform by its property name, "labelColor"; stops the program when there is none.
[[nodiscard]] std::shared_ptr<UIColor> systemColor(const char* name);
/// A plain area; with a radius, rounded.
[[nodiscard]] std::shared_ptr<UIView> area(const CGRect& frame, const std::shared_ptr<UIColor>& color,
                                           CGFloat radius = 0);
/// A text of its natural size, at the origin; wraps and is `widest` wide at most where that is given.
[[nodiscard]] std::shared_ptr<UILabel> caption(const std::string& text, CGFloat size, UIFontWeight weight,
                                               const std::shared_ptr<UIColor>& color, CGFloat widest = 0);
/// Moves a view so that its middle is there, but for the fraction of a point.
void centre(UIView& view, CGPoint middle);
