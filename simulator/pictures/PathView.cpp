#include "simulator/pictures/PathView.h"

#include <utility>

void PathView::addShape(CGPath path) {
    m_shapes.push_back(std::make_unique<UIBezierPath>(std::move(path)));
}

void PathView::addLine(CGPath path, CGFloat width) {
    auto line = std::make_unique<UIBezierPath>(std::move(path));
    line->setLineWidth(width);
    line->setLineCapStyle(CGLineCap::round);
    line->setLineJoinStyle(CGLineJoin::round);
    m_lines.push_back(std::move(line));
}

void PathView::drawRect(const CGRect&) {
    m_color->set();
    for (const auto& shape : m_shapes) {
        shape->fill();
    }
    for (const auto& line : m_lines) {
        line->stroke();
    }
}
