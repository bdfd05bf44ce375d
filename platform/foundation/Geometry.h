#pragma once

#include <cstddef>

/// Points, sizes, rectangles and insets. Lengths are in points unless a type says pixels; y grows downwards.

using CGFloat = double;

struct CGPoint {
    CGFloat x = 0;
    CGFloat y = 0;

    friend bool operator==(const CGPoint&, const CGPoint&) = default;
    friend CGPoint operator+(CGPoint one, CGPoint other) { return {one.x + other.x, one.y + other.y}; }
    friend CGPoint operator-(CGPoint one, CGPoint other) { return {one.x - other.x, one.y - other.y}; }
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
    /// Whether no part of the other one stands out.
    [[nodiscard]] bool contains(const CGRect& other) const;
    /// Empty (all zero) when the two do not overlap.
    [[nodiscard]] CGRect intersection(const CGRect& other) const;
    /// The smallest rectangle around both; an empty one counts for nothing.
    [[nodiscard]] CGRect unionWith(const CGRect& other) const;
    [[nodiscard]] CGRect insetBy(CGFloat dx, CGFloat dy) const;
    [[nodiscard]] CGRect offsetBy(CGFloat dx, CGFloat dy) const;
    [[nodiscard]] CGRect offsetBy(CGPoint distance) const { return offsetBy(distance.x, distance.y); }
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

/// A rectangle of device pixels; the right and bottom edges are outside.
struct PixelRect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    friend bool operator==(const PixelRect&, const PixelRect&) = default;

    [[nodiscard]] bool isEmpty() const { return width <= 0 || height <= 0; }
    [[nodiscard]] std::size_t area() const;
    [[nodiscard]] bool contains(const PixelRect& other) const { return intersection(other) == other; }
    /// Empty (all zero) when the two do not overlap.
    [[nodiscard]] PixelRect intersection(const PixelRect& other) const;
    /// The smallest rectangle around both.
    [[nodiscard]] PixelRect unionWith(const PixelRect& other) const;
};
