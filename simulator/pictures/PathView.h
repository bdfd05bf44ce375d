#pragma once

#include "platform/graphics/UIBezierPath.h"
#include "platform/uikit/view/UIView.h"

#include <memory>
#include <vector>

/// A glyph drawn with one colour: filled shapes and stroked lines, in the view's coordinates.
class PathView : public UIView {
public:
    PathView(const CGRect& frame, std::shared_ptr<UIColor> color) : UIView(frame), m_color(std::move(color)) {}

    void addShape(CGPath path);
    void addLine(CGPath path, CGFloat width);
    void drawRect(const CGRect& rect) override;

private:
    std::shared_ptr<UIColor> m_color;
    std::vector<std::unique_ptr<UIBezierPath>> m_shapes;
    std::vector<std::unique_ptr<UIBezierPath>> m_lines;
};
