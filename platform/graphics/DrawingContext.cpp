#include "platform/graphics/DrawingContext.h"

#include "platform/graphics/Canvas.h"

#include <utility>

void PathOperation::drawOn(Canvas& canvas) const {
    stroke ? canvas.strokePath(*path, color, *stroke) : canvas.fillPath(*path, color);
}

CGRect PathOperation::bounds() const {
    const CGFloat reach = stroke ? stroke->reach() : 0;
    return path->boundingBox().insetBy(-reach, -reach);
}

bool operator==(const PathOperation& one, const PathOperation& other) {
    return one.color == other.color && one.stroke == other.stroke &&
           (one.path == other.path || one.path->elements() == other.path->elements());
}

void DrawingContext::draw(PathOperation operation) const {
    if (m_record != nullptr && m_record->isWhole) {
        m_record->operations.push_back(std::move(operation));
    } else {
        operation.drawOn(m_canvas);
    }
}

Canvas& DrawingContext::canvas() const {
    if (m_record != nullptr && std::exchange(m_record->isWhole, false)) {
        for (const PathOperation& operation : std::exchange(m_record->operations, {})) {
            operation.drawOn(m_canvas);
        }
    }
    return m_canvas;
}
