#pragma once

#include "platform/graphics/Canvas.h"
#include "platform/graphics/TextLayout.h"
#include "platform/graphics/UIImage.h"

#include <sstream>
#include <string>

/// Draws nothing and writes down what it was told, one line an operation, in the coordinates of the caller:
/// `fill roundedRect(0 0 100 50 r8) rgba(1 1 1 1)`.
class RecordingCanvas : public Canvas {
public:
    /// All operations, each ended by a line break.
    [[nodiscard]] std::string text() const { return m_text.str(); }

    void save() override { write("save"); }
    void beginGroup(CGFloat alpha) override { write("group alpha ", alpha); }
    void restore() override { write("restore"); }
    void translate(CGFloat dx, CGFloat dy) override { write("translate ", dx, ' ', dy); }
    void clip(const CGPath& path) override { write("clip ", described(path)); }
    void fillPath(const CGPath& path, const RGBA& color) override {
        write("fill ", described(path), ' ', described(color));
    }
    void strokePath(const CGPath& path, const RGBA& color, const StrokeStyle& style) override {
        static constexpr const char* joins[] = {"miter", "round", "bevel"};
        static constexpr const char* caps[] = {"butt", "round", "square"};
        write("stroke ", described(path), ' ', described(color), " width ", style.width, " join ",
              joins[static_cast<int>(style.join)], " cap ", caps[static_cast<int>(style.cap)]);
    }
    void drawShadow(const CGPath& path, const RGBA& color, CGSize offset) override {
        write("shadow ", described(path), ' ', described(color), " offset ", offset.width, ' ', offset.height);
    }
    void drawImage(const UIImage& image, const CGRect& rect) override {
        write("image \"", image.name(), "\" rect(", described(rect), ')');
    }
    void drawText(const TextLayout& layout, CGPoint origin, const RGBA& color) override {
        write("text \"", layout.text(), "\" at(", described(origin), ") lines ", layout.lineCount(), ' ',
              described(color));
    }

private:
    template <class... Parts>
    static std::string line(const Parts&... parts) {
        std::ostringstream out;
        (out << ... << parts);
        return out.str();
    }
    template <class... Parts>
    void write(const Parts&... parts) {
        m_text << line(parts...) << '\n';
    }
    static std::string described(CGPoint point) { return line(point.x, ' ', point.y); }
    static std::string described(const CGRect& rect) {
        return line(described(rect.origin), ' ', rect.size.width, ' ', rect.size.height);
    }
    static std::string described(const RGBA& color) {
        return line("rgba(", color.red, ' ', color.green, ' ', color.blue, ' ', color.alpha, ')');
    }
    static std::string described(const CGPathElement& element) {
        const auto& points = element.points;
        switch (element.type) {
        case CGPathElementType::moveToPoint:
            return "M " + described(points[0]);
        case CGPathElementType::addLineToPoint:
            return "L " + described(points[0]);
        case CGPathElementType::addQuadCurveToPoint:
            return "Q " + described(points[0]) + ", " + described(points[1]);
        case CGPathElementType::addCurveToPoint:
            return "C " + described(points[0]) + ", " + described(points[1]) + ", " + described(points[2]);
        case CGPathElementType::closeSubpath:
            return "Z";
        }
        return "";
    }
    static std::string described(const CGPath& path) {
        if (const std::optional<RoundedRect>& shape = path.asRectangle()) {
            return shape->radius > 0 ? line("roundedRect(", described(shape->rect), " r", shape->radius, ')')
                                     : line("rect(", described(shape->rect), ')');
        }
        std::string all = "path(";
        for (const CGPathElement& element : path.elements()) {
            all += (all.back() == '(' ? "" : " ") + described(element);
        }
        return all + ')';
    }

    std::ostringstream m_text;
};
