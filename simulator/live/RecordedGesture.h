#pragma once

#include "platform/uikit/controls/UIScrollView.h"
#include "platform/uikit/window/UIWindow.h"
#include "simulator/conversation/ElementSearch.h"

#include <optional>
#include <string>
#include <vector>

// What a finger does, as a command of a flow. Points are in the window's coordinates.

/// A command and its value, as they are written.
struct RecordedStep {
    std::string command;
    std::string value; // may be empty
};

/// A text as a value that YAML reads as just that text.
[[nodiscard]] std::string written(const std::string& text);
[[nodiscard]] std::string written(const std::vector<std::string>& texts);
[[nodiscard]] std::string written(const Selector& selector);

/// The list that a finger put down at this place scrolls; null when it does something else.
[[nodiscard]] UIScrollView* listUnder(UIWindow& window, CGPoint place);

/// How long a swipe takes when it is played. None: what falls due meanwhile would come too early.
enum class SwipeTime { usual, none };

/// A finger's way from its first point to its last, asked for before the window is told that it is lifted: an element
/// that is touched, a place, or a line.
[[nodiscard]] RecordedStep recordedGesture(UIWindow& window, const std::vector<CGPoint>& points, bool scrolls,
                                           SwipeTime time);

/// A finger that scrolls the list by so many points, from a place where it takes hold of nothing else; none when there
/// is no such place.
[[nodiscard]] std::optional<RecordedStep> recordedScroll(UIWindow& window, const UIScrollView& list, CGFloat down,
                                                         SwipeTime time);
