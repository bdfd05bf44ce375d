#pragma once

#include "platform/foundation/Geometry.h"
#include "platform/foundation/Nearest.h"
#include "platform/graphics/UIColor.h"
#include "platform/graphics/UIFont.h"
#include "platform/interface/InterfaceDocument.h"

#include <array>
#include <memory>
#include <optional>
#include <unordered_set>

/// A number as interface documents write it: decimal, finite, at most a thousand million either way (so that it can
/// become a whole number and sums of lengths without further care). Anything else gives nothing.
[[nodiscard]] std::optional<double> parseNumber(std::string_view text);

/// A fixed set of words that documents use, each with its meaning.
template <class Meaning, std::size_t count>
using WordTable = std::array<std::pair<std::string_view, Meaning>, count>;

/// Reads what the elements of one document say: numbers, words, geometry, colours and fonts, and collects what is wrong
/// with the document. A value that is written wrongly is a finding on its element and then reads as absent. One for
/// each making of objects.
class ElementReader {
public:
    explicit ElementReader(const InterfaceDocument& document) : m_document(document) {}

    [[nodiscard]] const InterfaceDocument& document() const { return m_document; }
    [[nodiscard]] const Findings& findings() const { return m_findings; }
    void error(const InterfaceElement& element, const std::string& what);
    void warning(const InterfaceElement& element, const std::string& what);
    /// Remembers that somebody asked for what an element says. Null is passed on.
    const InterfaceElement* markRead(const InterfaceElement* element);
    [[nodiscard]] bool wasRead(const InterfaceElement& element) const { return m_read.count(&element) > 0; }
    /// `KEY is "WRITTEN", EXPECTED is expected`
    void unexpected(const InterfaceElement& element, std::string_view key, std::string_view written,
                    std::string_view expected);

    /// The number in an attribute; an absent one is an error.
    std::optional<double> number(const InterfaceElement& element, std::string_view key);
    /// The same; an absent or wrong one gives `standard`.
    double numberOr(const InterfaceElement& element, std::string_view key, double standard);
    std::optional<bool> boolean(const InterfaceElement& element, std::string_view key, std::string_view written);
    /// What the word in an attribute means; null, after an error, for a word that the table lacks.
    template <class Meaning, std::size_t count>
    const Meaning* word(const InterfaceElement& element, std::string_view key, const WordTable<Meaning, count>& table,
                        std::string_view expected);
    /// The same; an absent attribute means the table's first word.
    template <class Meaning, std::size_t count>
    const Meaning* wordOrFirst(const InterfaceElement& element, std::string_view key,
                               const WordTable<Meaning, count>& table, std::string_view expected);
    /// <rect x y width height>
    std::optional<CGRect> rect(const InterfaceElement& element);
    std::optional<CGSize> size(const InterfaceElement& element);
    /// <inset minX minY maxX maxY> or <edgeInsets top left bottom right>
    std::optional<UIEdgeInsets> insets(const InterfaceElement& element);
    /// Null where there is no such colour: it is written wrongly, or is named and neither the catalogue nor the
    /// document's resources have it.
    std::shared_ptr<UIColor> color(const InterfaceElement& element);
    std::shared_ptr<UIFont> font(const InterfaceElement& element);

private:
    template <std::size_t count>
    std::optional<std::array<double, count>> numbers(const InterfaceElement& element,
                                                     const std::array<const char*, count>& keys);
    double component(const InterfaceElement& element, std::string_view key);
    std::shared_ptr<UIColor> componentColor(const InterfaceElement& element);
    std::shared_ptr<UIColor> systemColor(const InterfaceElement& element, const std::string& name);
    std::shared_ptr<UIColor> listedColor(const char* kind, std::string_view name);
    double pointSize(const InterfaceElement& element);

    const InterfaceDocument& m_document;
    Findings m_findings;
    std::unordered_set<const InterfaceElement*> m_read;
};

/// Null for a word that the table lacks.
template <class Meaning, std::size_t count>
[[nodiscard]] const Meaning* meaningOf(std::string_view word, const WordTable<Meaning, count>& table) {
    for (const auto& [known, meaning] : table) {
        if (known == word) {
            return &meaning;
        }
    }
    return nullptr;
}

/// "; did you mean WORD?", or nothing.
template <class Meaning, std::size_t count>
[[nodiscard]] std::string suggestionFrom(std::string_view word, const WordTable<Meaning, count>& table) {
    std::vector<std::string> known;
    for (const auto& entry : table) {
        known.emplace_back(entry.first);
    }
    return suggestion(word, known);
}

template <class Meaning, std::size_t count>
const Meaning* ElementReader::word(const InterfaceElement& element, std::string_view key,
                                   const WordTable<Meaning, count>& table, std::string_view expected) {
    const std::string_view written = element.value(key);
    const Meaning* meaning = meaningOf(written, table);
    if (meaning == nullptr) {
        unexpected(element, key, written, std::string(expected) + " is expected" + suggestionFrom(written, table));
    }
    return meaning;
}

template <class Meaning, std::size_t count>
const Meaning* ElementReader::wordOrFirst(const InterfaceElement& element, std::string_view key,
                                          const WordTable<Meaning, count>& table, std::string_view expected) {
    return element.attribute(key) != nullptr ? word(element, key, table, expected) : &table.front().second;
}
