#include "platform/graphics/RecordingCanvas.h"

#include "platform/graphics/TextLayout.h"
#include "platform/graphics/UIImage.h"

#include <algorithm>
#include <sstream>

namespace {

std::ostream& operator<<(std::ostream& out, CGPoint point) {
    return out << point.x << ' ' << point.y;
}

std::ostream& operator<<(std::ostream& out, const CGRect& rect) {
    return out << rect.origin << ' ' << rect.size.width << ' ' << rect.size.height;
}

std::ostream& operator<<(std::ostream& out, const RGBA& color) {
    return out << "rgba(" << color.red << ' ' << color.green << ' ' << color.blue << ' ' << color.alpha << ')';
}

std::ostream& operator<<(std::ostream& out, const CGPathElement& element) {
    const auto& points = element.points;
    switch (element.type) {
    case CGPathElementType::moveToPoint:
        return out << "M " << points[0];
    case CGPathElementType::addLineToPoint:
        return out << "L " << points[0];
    case CGPathElementType::addQuadCurveToPoint:
        return out << "Q " << points[0] << ", " << points[1];
    case CGPathElementType::addCurveToPoint:
        return out << "C " << points[0] << ", " << points[1] << ", " << points[2];
    case CGPathElementType::closeSubpath:
        return out << "Z";
    }
    return out;
}

std::ostream& operator<<(std::ostream& out, const CGPath& path) {
    if (const std::optional<CGRoundedRect>& shape = path.asRectangle()) {
        return shape->radius > 0 ? out << "roundedRect(" << shape->rect << " r" << shape->radius << ')'
                                 : out << "rect(" << shape->rect << ')';
    }
    out << "path(";
    const char* gap = "";
    for (const CGPathElement& element : path.elements()) {
        out << gap << element;
        gap = " ";
    }
    return out << ')';
}

template <class... Parts>
std::string line(const Parts&... parts) {
    std::ostringstream out;
    (out << ... << parts);
    return out.str();
}

} // namespace

std::string RecordingCanvas::text() const {
    std::string all;
    for (const std::string& operation : m_operations) {
        all += operation + '\n';
    }
    return all;
}

bool RecordingCanvas::contains(std::string_view part) const {
    return std::any_of(m_operations.begin(), m_operations.end(),
                       [part](const std::string& operation) { return operation.find(part) != std::string::npos; });
}

void RecordingCanvas::save() {
    m_operations.emplace_back("save");
}

void RecordingCanvas::beginGroup(CGFloat alpha) {
    m_operations.push_back(line("group alpha ", alpha));
}

void RecordingCanvas::restore() {
    m_operations.emplace_back("restore");
}

void RecordingCanvas::concatenate(const CGAffineTransform& t) {
    if (t == CGAffineTransform::translation(t.tx, t.ty)) {
        m_operations.push_back(line("translate ", t.tx, ' ', t.ty));
        return;
    }
    m_operations.push_back(line("transform ", t.a, ' ', t.b, ' ', t.c, ' ', t.d, ' ', t.tx, ' ', t.ty));
}

void RecordingCanvas::clip(const CGPath& path) {
    m_operations.push_back(line("clip ", path));
}

void RecordingCanvas::fillPath(const CGPath& path, const RGBA& color) {
    m_operations.push_back(line("fill ", path, ' ', color));
}

void RecordingCanvas::strokePath(const CGPath& path, const RGBA& color, const StrokeStyle& style) {
    static constexpr const char* joins[] = {"miter", "round", "bevel"};
    static constexpr const char* caps[] = {"butt", "round", "square"};
    m_operations.push_back(line("stroke ", path, ' ', color, " width ", style.width, " join ",
                                joins[static_cast<int>(style.join)], " cap ", caps[static_cast<int>(style.cap)]));
}

void RecordingCanvas::drawShadow(const CGPath& path, const Shadow& shadow) {
    m_operations.push_back(line("shadow ", path, ' ', shadow.color, " offset ", shadow.offset.width, ' ',
                                shadow.offset.height, " radius ", shadow.radius));
}

void RecordingCanvas::drawImage(const UIImage& image, const CGRect& rect, const std::optional<RGBA>& tint) {
    std::string operation = line("image \"", image.name(), "\" rect(", rect, ')');
    m_operations.push_back(tint.has_value() ? line(operation, " tint ", *tint) : operation);
}

void RecordingCanvas::drawText(const TextLayout& layout, CGPoint origin, const RGBA& color) {
    m_operations.push_back(
        line("text \"", layout.text(), "\" at(", origin, ") lines ", layout.lineCount(), ' ', color));
}
