#pragma once

#include "platform/graphics/Canvas.h"

#include <string>
#include <string_view>
#include <vector>

/// Draws nothing and writes down what it was told, one line an operation, in the coordinates of the caller:
/// `fill roundedRect(0 0 100 50 r8) rgba(1 1 1 1)`. For tests and reports.
class RecordingCanvas : public Canvas {
public:
    explicit RecordingCanvas(CGFloat scale = 1) : Canvas(scale) {}

    [[nodiscard]] const std::vector<std::string>& operations() const { return m_operations; }
    /// All operations, each ended by a line break.
    [[nodiscard]] std::string text() const;
    [[nodiscard]] bool contains(std::string_view part) const;
    void clear() { m_operations.clear(); }

    void save() override;
    void beginGroup(CGFloat alpha) override;
    void restore() override;
    void concatenate(const CGAffineTransform& transform) override;
    void clip(const CGPath& path) override;
    void fillPath(const CGPath& path, const RGBA& color) override;
    void strokePath(const CGPath& path, const RGBA& color, const StrokeStyle& style) override;
    void drawShadow(const CGPath& path, const Shadow& shadow) override;
    void drawImage(const UIImage& image, const CGRect& rect, const std::optional<RGBA>& tint) override;
    void drawText(const TextLayout& layout, CGPoint origin, const RGBA& color) override;

private:
    std::vector<std::string> m_operations;
};
