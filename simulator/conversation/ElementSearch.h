#pragma once

#include "simulator/conversation/ScreenElement.h"

/// Which element of the screen is meant. Text and id match literally or else as a whole regular expression, letter case
/// aside; all that are given must hold.
struct Selector {
    std::optional<std::string> text;
    std::optional<std::string> id;
    std::optional<int> index;      // among all that match, from top to bottom, then left to right; counted from 0
    std::optional<bool> enabled{}; // whether the control that it is or stands in can be used
    std::shared_ptr<const Selector> below{}; // then the first that begins below this element
    std::shared_ptr<const Selector> above{}; // then the last that begins above this element

    /// For messages: 'Friends', id 'back', 'Play' number 2, 'Play' below 'Friends'.
    [[nodiscard]] std::string describe() const;
};

/// Looks for elements on the extension's screen as it is at this moment. Short-lived: it refers to the window.
class ElementSearch {
public:
    explicit ElementSearch(UIWindow& window) : m_window(window) {}

    /// The visible element that is meant; without an index the first from the top.
    [[nodiscard]] std::optional<ScreenElement> find(const Selector& selector) const;
    /// Whether an element is meant that is there, visible or not.
    [[nodiscard]] bool exists(const Selector& selector) const;
    /// What is on the screen instead of an element that find() does not find, for messages: a text that is an id, the
    /// text that an element with that id has, why none of those that match is meant, the nearest text or id, or all
    /// that can be seen.
    [[nodiscard]] std::string insteadOf(const Selector& selector) const;

private:
    [[nodiscard]] std::vector<ScreenElement> elements() const;
    [[nodiscard]] std::string nearestOf(const std::vector<ScreenElement>& visible, const Selector& selector) const;

    UIWindow& m_window;
};
