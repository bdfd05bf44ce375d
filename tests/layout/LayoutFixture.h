#pragma once

#include "platform/layout/LayoutSystem.h"

#include <map>
#include <string>
#include <vector>

/// A layout written as lines of text, so that a test reads like the screen it is about:
///     item label size 80 20 hug 251 resist 749 baseline 15
///     item root frame 0 0 320 100
///     item child in root frame 5 5 10 10
///     label.left = root.left + 16; label.top = root.top
///     label.width >= 0.5 * root.width - 4 @750
/// A semicolon is a line's end as well. A constraint's name is its line.
class LayoutFixture {
public:
    explicit LayoutFixture(std::string text);

    [[nodiscard]] const LayoutResult& result() const { return m_result; }
    /// "x y width height", rounded to a thousandth of a point.
    [[nodiscard]] std::string frame(const std::string& item) const;
    /// One line each: "NAME: REASON, OTHER, OTHER".
    [[nodiscard]] std::vector<std::string> conflicts() const;
    /// One line each: "NAME: x y width height", of these what is free.
    [[nodiscard]] std::vector<std::string> ambiguities() const;

private:
    void addItem(const std::string& line);
    void addConstraint(const std::string& line);

    std::map<std::string, int> m_indices;
    std::vector<LayoutItem> m_items;
    std::vector<LayoutConstraint> m_constraints;
    LayoutResult m_result;
};
