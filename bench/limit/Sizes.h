#pragma once

namespace limit {

// Lengths of the screen, in pixels of a phone of 393 x 852 points at 3x; the interface files have them in points.

constexpr int points(int length) {
    return 3 * length;
}

constexpr int screenWidth = points(393);
constexpr int screenHeight = points(852);

constexpr int titleTop = 59;
constexpr int titleHeight = 95;
constexpr int boxLeft = points(16);
constexpr int boxTop = titleTop + titleHeight + points(6);
constexpr int boxWidth = screenWidth - 2 * boxLeft;
constexpr int boxHeight = points(52);
constexpr int tableTop = boxTop + boxHeight + points(4);
constexpr int insetTop = points(10);
constexpr int insetBottom = points(80);

constexpr int headerHeight = points(30);
constexpr int footerHeight = points(20);
constexpr int cardLeft = points(16);
constexpr int cardWidth = screenWidth - 2 * cardLeft;
constexpr int cardMarginY = points(5);
constexpr int cardRadius = points(14);
constexpr int iconSize = points(44);
constexpr int arrowSize = points(24);
constexpr int textLeft = points(12) + iconSize + points(12);
constexpr int textWidth = cardWidth - textLeft - points(8) - arrowSize - points(12);
constexpr int cardPadding = points(10);
constexpr int textGap = points(3);

constexpr int softEdge = points(12); // the list's upper end, fading in steps of 2 points
constexpr int buttonLeft = boxLeft;
constexpr int buttonWidth = boxWidth;
constexpr int buttonHeight = points(50);
constexpr int buttonTop = screenHeight - points(8) - buttonHeight;
constexpr int barTop = buttonTop - points(8); // the list is seen down to here

} // namespace limit
