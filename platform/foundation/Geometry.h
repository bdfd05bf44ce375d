#pragma once

/// Points, sizes, rectangles and insets. All lengths are in points; y grows downwards.

using CGFloat = double;

struct CGPoint {
    CGFloat x = 0;
    CGFloat y = 0;

    friend bool operator==(const CGPoint&, const CGPoint&) = default;
};

struct CGSize {
    CGFloat width = 0;
    CGFloat height = 0;

    friend bool operator==(const CGSize&, const CGSize&) = default;
};

struct CGRect {
    CGPoint origin;
    CGSize size;

    friend bool operator==(const CGRect&, const CGRect&) = default;

    [[nodiscard]] CGFloat minX() const { return origin.x; }
    [[nodiscard]] CGFloat minY() const { return origin.y; }
    [[nodiscard]] CGFloat maxX() const { return origin.x + size.width; }
    [[nodiscard]] CGFloat maxY() const { return origin.y + size.height; }
    [[nodiscard]] CGFloat midX() const { return origin.x + size.width / 2; }
    [[nodiscard]] CGFloat midY() const { return origin.y + size.height / 2; }
    [[nodiscard]] bool isEmpty() const { return !(size.width > 0 && size.height > 0); }
    /// The right and bottom edges are outside.
    [[nodiscard]] bool contains(CGPoint point) const;
    /// Empty (all zero) when the two do not overlap.
    [[nodiscard]] CGRect intersection(const CGRect& other) const;
    /// The smallest rectangle around both; an empty one counts for nothing.
    [[nodiscard]] CGRect unionWith(const CGRect& other) const;
    [[nodiscard]] CGRect insetBy(CGFloat dx, CGFloat dy) const;
    [[nodiscard]] CGRect offsetBy(CGFloat dx, CGFloat dy) const;
};

struct UIEdgeInsets {
    CGFloat top = 0;
    CGFloat left = 0;
    CGFloat bottom = 0;
    CGFloat right = 0;

    friend bool operator==(const UIEdgeInsets&, const UIEdgeInsets&) = default;
};

[[nodiscard]] constexpr CGRect CGRectMake(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
    return {{x, y}, {width, height}};
}

[[nodiscard]] CGRect UIEdgeInsetsInsetRect(const CGRect& rect, const UIEdgeInsets& insets);
