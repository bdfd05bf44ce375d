#include "simulator/conversation/Screen.h"

#include "simulator/conversation/TextPattern.h"

#include <algorithm>
#include <functional>

namespace {

using Matcher = std::function<bool(const ScreenElement&)>;
using TextMatcher = std::function<bool(const std::string&)>;

void collect(UIWindow& window, const std::shared_ptr<UIView>& view, std::vector<ScreenElement>& elements) {
    ScreenElement element(window, view);
    if (!element.texts().empty() || !element.identifier().empty()) {
        elements.push_back(std::move(element));
    }
    for (const std::shared_ptr<UIView>& subview : view->subviews()) {
        collect(window, subview, elements);
    }
}

bool fits(const Selector& selector, const ScreenElement& element, const TextMatcher& text, const TextMatcher& id) {
    const bool textFits = !selector.text || std::any_of(element.texts().begin(), element.texts().end(), text);
    return textFits && (!selector.id || id(element.identifier()));
}

/// Compared literally before, so that what is no regular expression may match nothing.
TextMatcher wholePattern(const std::optional<std::string>& pattern) {
    return
        [expression = TextPattern(pattern.value_or(""))](const std::string& text) { return expression.matches(text); };
}

std::vector<ScreenElement> select(const std::vector<ScreenElement>& elements, const Matcher& matches) {
    std::vector<ScreenElement> selected;
    std::copy_if(elements.begin(), elements.end(), std::back_inserter(selected), matches);
    return selected;
}

/// Those that match literally; only when there are none, those that match as patterns.
std::vector<ScreenElement> matching(const std::vector<ScreenElement>& elements, const Selector& selector) {
    const auto literally = [](const std::optional<std::string>& wanted) -> TextMatcher {
        return [&wanted](const std::string& text) { return text == wanted; };
    };
    std::vector<ScreenElement> found = select(elements, [&](const ScreenElement& element) {
        return fits(selector, element, literally(selector.text), literally(selector.id));
    });
    if (found.empty()) {
        const TextMatcher text = wholePattern(selector.text);
        const TextMatcher id = wholePattern(selector.id);
        found = select(elements, [&](const ScreenElement& element) { return fits(selector, element, text, id); });
    }
    return found;
}

bool isVisible(const ScreenElement& element) {
    return element.visibleShare() >= Screen::enough;
}

} // namespace

std::vector<ScreenElement> Screen::elements() const {
    std::vector<ScreenElement> all;
    for (const std::shared_ptr<UIView>& view : m_window.subviews()) {
        collect(m_window, view, all);
    }
    return all;
}

std::optional<ScreenElement> Screen::find(const Selector& selector) const {
    std::vector<ScreenElement> found = select(matching(elements(), selector), isVisible);
    std::stable_sort(found.begin(), found.end(), [](const ScreenElement& one, const ScreenElement& other) {
        return std::pair(one.frame().minY(), one.frame().minX()) <
               std::pair(other.frame().minY(), other.frame().minX());
    });
    const auto index = static_cast<std::size_t>(selector.index.value_or(0));
    return index < found.size() ? std::optional(found[index]) : std::nullopt;
}

bool Screen::hasHidden(const Selector& selector) const {
    return !matching(elements(), selector).empty();
}

std::vector<std::string> Screen::visibleTexts() const {
    std::vector<std::string> texts;
    for (const ScreenElement& element : select(elements(), isVisible)) {
        texts.insert(texts.end(), element.texts().begin(), element.texts().end());
    }
    return texts;
}

std::vector<std::string> Screen::visibleIdentifiers() const {
    std::vector<std::string> identifiers;
    for (const ScreenElement& element : select(elements(), isVisible)) {
        if (!element.identifier().empty()) {
            identifiers.push_back(element.identifier());
        }
    }
    return identifiers;
}
