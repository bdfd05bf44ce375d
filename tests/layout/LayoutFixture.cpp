#include "tests/layout/LayoutFixture.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace {

LayoutAttribute attributeNamed(const std::string& name) {
    static const std::vector<std::string> names{"left",    "right",    "top",           "bottom",
                                                "leading", "trailing", "width",         "height",
                                                "centerX", "centerY",  "firstBaseline", "lastBaseline"};
    return static_cast<LayoutAttribute>(std::find(names.begin(), names.end(), name) - names.begin());
}

bool isReference(const std::string& word) {
    return std::isalpha(static_cast<unsigned char>(word.front())) != 0 && word.find('.') != std::string::npos;
}

std::string trimmed(const std::string& line) {
    const std::size_t first = line.find_first_not_of(' ');
    return first == std::string::npos ? "" : line.substr(first, line.find_last_not_of(' ') - first + 1);
}

} // namespace

LayoutFixture::LayoutFixture(std::string text) {
    std::replace(text.begin(), text.end(), ';', '\n');
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        line = trimmed(line);
        if (line.rfind("item ", 0) == 0)
            addItem(line);
        else if (!line.empty())
            addConstraint(line);
    }
    m_result = solveLayout(m_items, m_constraints);
}

void LayoutFixture::addItem(const std::string& line) {
    std::istringstream words(line.substr(5));
    LayoutItem item;
    words >> item.name;
    const auto number = [&words] {
        std::string word;
        words >> word;
        return std::stod(word);
    };
    for (std::string word; words >> word;) {
        if (word == "in") {
            words >> word;
            item.parent = m_indices.at(word);
        } else if (word == "frame") {
            CGRect frame;
            for (CGFloat* length : {&frame.origin.x, &frame.origin.y, &frame.size.width, &frame.size.height})
                *length = number();
            item.fixedFrame = frame;
        } else if (word == "size") {
            item.intrinsicWidth = number();
            item.intrinsicHeight = number();
        } else if (word == "hug") {
            item.horizontalHugging = item.verticalHugging = number();
        } else if (word == "resist") {
            item.horizontalCompressionResistance = item.verticalCompressionResistance = number();
        } else if (word == "baseline") {
            item.firstBaseline = item.lastBaseline = number();
        } else {
            throw std::invalid_argument(line);
        }
    }
    m_indices[item.name] = static_cast<int>(m_items.size());
    m_items.push_back(item);
}

void LayoutFixture::addConstraint(const std::string& line) {
    LayoutConstraint constraint;
    constraint.name = line;
    std::istringstream words(line);
    double sign = 1;
    for (std::string word; words >> word;) {
        if (word == "*" || word == "+")
            continue;
        if (word == "-") {
            sign = -1;
        } else if (word.front() == '@') {
            constraint.priority = std::stod(word.substr(1));
        } else if (isReference(word)) {
            const std::size_t dot = word.find('.');
            const bool isFirst = constraint.first < 0;
            (isFirst ? constraint.first : constraint.second) = m_indices.at(word.substr(0, dot));
            (isFirst ? constraint.firstAttribute : constraint.secondAttribute) = attributeNamed(word.substr(dot + 1));
            if (!isFirst && constraint.constant != 0)
                constraint.multiplier = std::exchange(constraint.constant, 0);
        } else if (word.find_first_of("<=>") != std::string::npos) {
            constraint.relation = word == "="    ? LayoutRelation::equal
                                  : word == ">=" ? LayoutRelation::greaterThanOrEqual
                                                 : LayoutRelation::lessThanOrEqual;
        } else {
            constraint.constant = sign * std::stod(word);
        }
    }
    m_constraints.push_back(constraint);
}

std::string LayoutFixture::frame(const std::string& item) const {
    const CGRect& frame = m_result.frames.at(static_cast<std::size_t>(m_indices.at(item)));
    std::ostringstream text;
    const auto rounded = [](double length) { return std::round(length * 1000) / 1000 + 0.0; };
    text << rounded(frame.origin.x) << ' ' << rounded(frame.origin.y) << ' ' << rounded(frame.size.width) << ' '
         << rounded(frame.size.height);
    return text.str();
}

std::vector<std::string> LayoutFixture::conflicts() const {
    std::vector<std::string> lines;
    for (const LayoutConflict& conflict : m_result.conflicts) {
        lines.push_back(conflict.name + ": " + conflict.reason);
        for (const std::string& other : conflict.others)
            lines.back() += ", " + other;
    }
    return lines;
}

std::vector<std::string> LayoutFixture::ambiguities() const {
    std::vector<std::string> lines;
    for (const LayoutAmbiguity& ambiguity : m_result.ambiguities) {
        lines.push_back(ambiguity.name + ":" + (ambiguity.x ? " x" : "") + (ambiguity.y ? " y" : "") +
                        (ambiguity.width ? " width" : "") + (ambiguity.height ? " height" : ""));
    }
    return lines;
}
