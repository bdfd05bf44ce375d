#pragma once

#include "platform/foundation/Geometry.h"

/// How the lines of a paragraph are aligned. The numbers are the platform's own.
enum class NSTextAlignment { left = 0, center = 1, right = 2, justified = 3, natural = 4 };

/// How a paragraph is set. `lineSpacing` is the extra distance between its lines, in points.
struct NSParagraphStyle {
    CGFloat lineSpacing = 0;
    NSTextAlignment alignment = NSTextAlignment::natural;

    friend bool operator==(const NSParagraphStyle&, const NSParagraphStyle&) = default;
};

using NSMutableParagraphStyle = NSParagraphStyle;
