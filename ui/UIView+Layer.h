#pragma once

#include "platform/uikit/view/UIView.h"

#include <memory>

/// Properties of every view that stand for its layer's: read from the layer and written to it, with no storage of their
/// own. Interface files set them by key.

/// Points. Writing it also turns on clipping to the bounds.
[[nodiscard]] CGFloat cornerRadius(const UIView& view);
void setCornerRadius(UIView& view, CGFloat radius);
/// Null when the layer has none; writing null clears it.
[[nodiscard]] std::shared_ptr<UIColor> borderColorApp(const UIView& view);
void setBorderColorApp(UIView& view, const std::shared_ptr<UIColor>& color);
/// Points.
[[nodiscard]] CGFloat borderWidth(const UIView& view);
void setBorderWidth(UIView& view, CGFloat width);
