#include "simulator/conversation/ElementSearch.h"

#include "platform/foundation/Nearest.h"

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <tuple>

namespace {

PCRE2_SPTR units(const std::string& text) {
    return reinterpret_cast<PCRE2_SPTR>(text.data());
}

/// A regular expression that a text has to match as a whole, whatever its case. Patterns are written by others: neither
/// one that tries without end nor a very long one can hold Parlor up, and one that is none matches nothing.
class TextPattern {
public:
    explicit TextPattern(const std::string& pattern) {
        constexpr std::size_t longest = 1000;             // bytes
        constexpr std::uint32_t greatestEffort = 100'000; // steps back; a reasonable pattern needs a few hundred
        constexpr std::uint32_t options = PCRE2_ANCHORED | PCRE2_ENDANCHORED | PCRE2_CASELESS | PCRE2_DOTALL |
                                          PCRE2_UTF | PCRE2_MATCH_INVALID_UTF | PCRE2_NEVER_BACKSLASH_C;
        const std::shared_ptr<pcre2_compile_context> context(pcre2_compile_context_create(nullptr),
                                                             pcre2_compile_context_free);
        pcre2_set_max_pattern_length(context.get(), longest);
        pcre2_set_match_limit(m_context.get(), greatestEffort);
        int error = 0;
        PCRE2_SIZE place = 0;
        m_code.reset(pcre2_compile(units(pattern), pattern.size(), options, &error, &place, context.get()),
                     pcre2_code_free);
    }

    [[nodiscard]] bool matches(const std::string& text) const {
        if (!m_code) {
            return false;
        }
        const std::shared_ptr<pcre2_match_data> data(pcre2_match_data_create_from_pattern(m_code.get(), nullptr),
                                                     pcre2_match_data_free);
        return pcre2_match(m_code.get(), units(text), text.size(), 0, 0, data.get(), m_context.get()) > 0;
    }

private:
    std::shared_ptr<pcre2_code> m_code; // null when the pattern is no regular expression
    std::shared_ptr<pcre2_match_context> m_context{pcre2_match_context_create(nullptr), pcre2_match_context_free};
};

void collect(UIWindow& window, const std::shared_ptr<UIView>& view, std::vector<ScreenElement>& elements) {
    ScreenElement element(window, view);
    if (!element.texts().empty() || !element.identifier().empty()) {
        elements.push_back(std::move(element));
    }
    for (const std::shared_ptr<UIView>& subview : view->subviews()) {
        collect(window, subview, elements);
    }
}

std::vector<ScreenElement> select(const std::vector<ScreenElement>& elements,
                                  const std::function<bool(const ScreenElement&)>& matches) {
    std::vector<ScreenElement> selected;
    std::copy_if(elements.begin(), elements.end(), std::back_inserter(selected), matches);
    return selected;
}

/// `text` and `id` say whether a text fits what the selector asks for.
template <class Matcher>
std::vector<ScreenElement> matching(const std::vector<ScreenElement>& elements, const Selector& selector,
                                    const Matcher& text, const Matcher& id) {
    return select(elements, [&](const ScreenElement& element) {
        const bool textFits = !selector.text || std::any_of(element.texts().begin(), element.texts().end(), text);
        return textFits && (!selector.id || id(element.identifier()));
    });
}

/// Those that match literally; only when there are none, those that match as patterns.
std::vector<ScreenElement> matching(const std::vector<ScreenElement>& elements, const Selector& selector) {
    const auto literally = [](const std::optional<std::string>& wanted) {
        return [&wanted](const std::string& text) { return text == wanted; };
    };
    const auto asPattern = [](const std::optional<std::string>& wanted) {
        return [pattern = TextPattern(wanted.value_or(""))](const std::string& text) { return pattern.matches(text); };
    };
    const auto found = matching(elements, selector, literally(selector.text), literally(selector.id));
    return found.empty() ? matching(elements, selector, asPattern(selector.text), asPattern(selector.id)) : found;
}

/// The first words of a long text.
std::string shortened(const std::string& text) {
    constexpr std::size_t longest = 40; // bytes
    const std::size_t end = text.size() > longest ? text.rfind(' ', longest) : std::string::npos;
    return end == std::string::npos ? text : text.substr(0, end) + " …";
}

/// The first names from the top, with what they are called.
std::string seen(const std::vector<std::string>& names, const std::string& kind) {
    constexpr std::size_t most = 12;
    std::string all;
    for (std::size_t i = 0; i < names.size() && i < most; ++i) {
        all += (i == 0 ? "" : ", ") + ("'" + shortened(names[i]) + "'");
    }
    return all.empty() ? "; there are no " + kind : "; the " + kind + " are " + all + (names.size() > most ? " …" : "");
}

/// The names that can be seen, or are there at all.
struct Names {
    std::vector<std::string> texts;
    std::vector<std::string> ids;

    explicit Names(const std::vector<ScreenElement>& elements) {
        for (const ScreenElement& element : elements) {
            texts.insert(texts.end(), element.texts().begin(), element.texts().end());
            if (!element.identifier().empty()) {
                ids.push_back(element.identifier());
            }
        }
    }
};

/// Why none of those that have the text and the id is the one that is meant.
std::string whyNone(const std::vector<ScreenElement>& matches, const Selector& selector) {
    const auto isAsWanted = [&](const ScreenElement& element) { return element.isEnabled() == selector.enabled; };
    if (selector.enabled && std::none_of(matches.begin(), matches.end(), isAsWanted)) {
        return *selector.enabled ? ": it is disabled" : ": it is enabled";
    }
    if (selector.index && static_cast<std::size_t>(*selector.index) >= matches.size()) {
        return ": the last is number " + std::to_string(matches.size() - 1);
    }
    return ": it stands elsewhere";
}

} // namespace

std::string Selector::describe() const {
    std::string words;
    if (text) {
        words = "'" + *text + "'";
    }
    if (id) {
        words += (words.empty() ? "id '" : " with id '") + *id + "'";
    }
    words += index ? " number " + std::to_string(*index) : "";
    words += enabled ? *enabled ? ", enabled" : ", disabled" : "";
    words += below ? " below " + below->describe() : "";
    return words + (above ? " above " + above->describe() : "");
}

std::vector<ScreenElement> ElementSearch::elements() const {
    std::vector<ScreenElement> all;
    for (const std::shared_ptr<UIView>& view : m_window.subviews()) {
        collect(m_window, view, all);
    }
    return all;
}

std::optional<ScreenElement> ElementSearch::find(const Selector& selector) const {
    std::vector<ScreenElement> found = select(matching(elements(), selector), &ScreenElement::isVisible);
    const std::optional<ScreenElement> upper = selector.below ? find(*selector.below) : std::nullopt;
    const std::optional<ScreenElement> lower = selector.above ? find(*selector.above) : std::nullopt;
    if ((selector.below && !upper) || (selector.above && !lower)) {
        return std::nullopt;
    }
    std::erase_if(found, [&](const ScreenElement& element) {
        return (selector.enabled && *selector.enabled != element.isEnabled()) ||
               (upper && element.frame().minY() <= upper->frame().minY()) ||
               (lower && element.frame().minY() >= lower->frame().minY());
    });
    const double direction = lower && !upper ? -1 : 1; // the nearest comes first
    std::stable_sort(found.begin(), found.end(), [direction](const ScreenElement& one, const ScreenElement& other) {
        return std::pair(direction * one.frame().minY(), one.frame().minX()) <
               std::pair(direction * other.frame().minY(), other.frame().minX());
    });
    const auto index = static_cast<std::size_t>(selector.index.value_or(0));
    return index < found.size() ? std::optional(found[index]) : std::nullopt;
}

bool ElementSearch::exists(const Selector& selector) const {
    return !matching(elements(), selector).empty();
}

std::string ElementSearch::insteadOf(const Selector& selector) const {
    for (const auto* anchor : {selector.below.get(), selector.above.get()}) {
        if (anchor != nullptr && !find(*anchor)) {
            return ": no " + anchor->describe() + insteadOf(*anchor);
        }
    }
    const std::vector<ScreenElement> visible = select(elements(), &ScreenElement::isVisible);
    if (const auto matches = matching(visible, selector); !matches.empty()) {
        return whyNone(matches, selector);
    }
    if (selector.text && selector.id) {
        const auto sameId = matching(visible, {std::nullopt, selector.id, std::nullopt});
        if (!sameId.empty() && !sameId.front().texts().empty()) {
            return ": id '" + *selector.id + "' says '" + sameId.front().texts().front() + "'";
        }
    }
    return nearestOf(visible, selector);
}

std::string ElementSearch::nearestOf(const std::vector<ScreenElement>& visible, const Selector& selector) const {
    const Names names(visible);
    const std::string wanted = selector.text.value_or(selector.id.value_or(""));
    const auto& [same, others] = selector.text ? std::tie(names.texts, names.ids) : std::tie(names.ids, names.texts);
    if (std::find(others.begin(), others.end(), wanted) != others.end()) {
        return selector.text ? "; it is an id, and no text: {id: " + wanted + "}" : "; it is a text, and no id";
    }
    const std::string nearest = suggestion(wanted, same);
    if (!nearest.empty()) {
        return nearest;
    }
    const Names all(elements());
    const std::string hidden = suggestion(wanted, selector.text ? all.texts : all.ids);
    return hidden.empty() ? seen(same, selector.text ? "texts" : "ids") : hidden + " It cannot be seen";
}
