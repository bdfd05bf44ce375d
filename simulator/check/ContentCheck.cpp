#include "simulator/check/ContentCheck.h"

#include "content/CurrentOption.h"
#include "content/ModeListDecoder.h"
#include "platform/foundation/FileReading.h"
#include "platform/foundation/Text.h"
#include "platform/foundation/TextPlaces.h"
#include "platform/graphics/TextLayout.h"
#include "platform/graphics/UIImage.h"
#include "simulator/check/CatalogCheck.h"
#include "simulator/check/IconNames.h"
#include "simulator/check/ListSchema.h"
#include "simulator/check/Rules.h"
#include "simulator/check/TitleFit.h"
#include "simulator/check/TolerantJSON.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <optional>

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

std::string inQuotes(std::string_view text) {
    return std::string("\"").append(text).append("\"");
}

/// "U+1F600", of one character.
std::string codeOf(const std::string& character) {
    const auto first = static_cast<unsigned char>(character.front());
    unsigned code = first < 0x80 ? first : first & (0xFFu >> (character.size() + 1));
    for (std::size_t i = 1; i < character.size(); ++i) {
        code = code << 6 | (static_cast<unsigned char>(character[i]) & 0x3Fu);
    }
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "U+%04X", code);
    return text.data();
}

std::string describe(const TolerantValue& value) {
    switch (value.kind) {
    case JSONKind::null:
        return "null";
    case JSONKind::boolean:
        return value.flag ? "true" : "false";
    case JSONKind::number:
        return "the number " + value.text;
    case JSONKind::string:
        return value.text.size() > 20 ? "a text" : "the text " + inQuotes(value.text);
    case JSONKind::array:
        return "a list, [ … ]";
    case JSONKind::object:
        return "an object, { … }";
    }
    return {};
}

/// Looks through one list that was read tolerantly.
class ListCheck {
public:
    ListCheck(std::string_view text, std::string path) : m_places(text), m_path(std::move(path)) {}

    Findings check(const TolerantReading& reading) {
        for (const JSONSlip& slip : reading.slips) {
            tell(slip.rule, slip.offset, slip.what);
        }
        const bool isEmpty = !reading.slips.empty() && reading.slips.front().rule == "content.empty";
        if (reading.root.kind != JSONKind::array) {
            if (!isEmpty) {
                tell("content.root", reading.root.offset,
                     "the file must hold a list of sections, [ … ], but holds " + describe(reading.root) +
                         (reading.root.kind == JSONKind::object ? "; put [ before it and ] after it" : ""));
            }
            return std::move(m_findings);
        }
        TitlesSeen titles;
        for (const TolerantValue& section : reading.root.elements) {
            ++m_section;
            m_item = 0;
            checkObject(section, sectionKeys(), "a section");
            checkTitle(section, "sectionTitle", titles);
            checkItems(section);
        }
        tellLackingIcons();
        return std::move(m_findings);
    }

private:
    struct Lacking {
        std::size_t offset; // of the first
        std::string where;
        std::size_t rows = 1;
    };
    using TitlesSeen = std::map<std::string, std::size_t>; // with the offset of the first

    void checkItems(const TolerantValue& section) {
        const TolerantValue* items = find(section, "items");
        if (items == nullptr || items->kind != JSONKind::array) {
            return;
        }
        TitlesSeen titles;
        for (const TolerantValue& item : items->elements) {
            ++m_item;
            checkObject(item, itemKeys(), "an item");
            checkTitle(item, "title", titles);
            checkIcon(item);
            if (const TolerantValue* subtitle = find(item, "subtitle")) {
                checkCharacters(*subtitle);
            }
        }
    }

    // Keys and kinds.

    /// The last of that name counts.
    static const TolerantValue* find(const TolerantValue& object, std::string_view key) {
        const TolerantValue* found = nullptr;
        for (std::size_t i = 0; i < object.keys.size(); ++i) {
            found = object.keys[i].second == key ? &object.elements[i] : found;
        }
        return found;
    }

    void checkObject(const TolerantValue& object, const std::vector<ListKey>& known, const std::string& kind) {
        if (object.kind != JSONKind::object) {
            tell("content.key-type", object.offset, where() + "must be an object, { … }, but is " + describe(object));
            return;
        }
        std::vector<std::string> missing;
        for (const ListKey& key : known) {
            if (const TolerantValue* value = find(object, key.name)) {
                checkKind(key, *value);
            } else {
                missing.emplace_back(key.name);
            }
        }
        checkKeys(object, known, kind, missing);
        for (const std::string& name : missing) {
            tell("content.key-missing", object.offset, where() + inQuotes(name) + " is missing");
        }
    }

    /// What is nearly a missing key is that key; it is then no longer missing.
    void checkKeys(const TolerantValue& object, const std::vector<ListKey>& known, const std::string& kind,
                   std::vector<std::string>& missing) {
        for (std::size_t i = 0; i < object.keys.size(); ++i) {
            const auto& [offset, name] = object.keys[i];
            if (isAmong(known, name)) {
                checkOnce(object, i);
                continue;
            }
            const std::string nearest = suggestionInQuotes(name, missing);
            const std::string what = where() + inQuotes(name) + " is no key of " + kind;
            if (nearest.empty()) {
                tell("content.key-unknown", offset, what + ", and is passed over");
            } else {
                tell("content.key-misspelt", offset, what + nearest);
                std::erase_if(missing, [&](const std::string& each) {
                    return nearest.find(inQuotes(each)) != std::string::npos;
                });
            }
        }
    }

    static bool isAmong(const std::vector<ListKey>& known, std::string_view name) {
        return std::any_of(known.begin(), known.end(), [name](const ListKey& key) { return key.name == name; });
    }

    void checkOnce(const TolerantValue& object, std::size_t index) {
        const std::size_t offset = object.keys[index].first;
        const std::string& name = object.keys[index].second; // clang 14 captures no structured binding
        const auto end = object.keys.begin() + static_cast<std::ptrdiff_t>(index);
        if (std::any_of(object.keys.begin(), end, [&](const auto& key) { return key.second == name; })) {
            tell("content.key-doubled", offset, where() + inQuotes(name) + " stands here twice; the last one counts");
        }
    }

    void checkKind(const ListKey& key, const TolerantValue& value) {
        if (value.kind == key.kind) {
            return;
        }
        const bool isQuotedBoolean = key.kind == JSONKind::boolean && (value.text == "true" || value.text == "false");
        tell("content.key-type", value.offset,
             where() + inQuotes(key.name) + " must be " + std::string(key.expected) + ", but is " + describe(value) +
                 (isQuotedBoolean ? "; take its quotes away" : ""));
    }

    // What the values say.

    void checkTitle(const TolerantValue& object, std::string_view key, TitlesSeen& seen) {
        const TolerantValue* title = find(object, key);
        if (title == nullptr || title->kind != JSONKind::string) {
            return;
        }
        const bool isBlank = trimmingWhitespaceAndNewlines(title->text).empty();
        const bool mayBeEmpty = key == "sectionTitle"; // a section without a header
        if (isBlank && (!mayBeEmpty || !title->text.empty())) {
            tell("content.title-empty", title->offset,
                 where() + (mayBeEmpty ? "the section title is nothing but spaces; without a header it is \"\""
                                       : "the title is empty"));
        }
        const std::string problem = mayBeEmpty ? m_fit.problemOfSection(title->text) : m_fit.problemOfRow(title->text);
        if (!problem.empty()) {
            tell("content.title-cut", title->offset,
                 where() + (mayBeEmpty ? "the section title " : "the title ") + problem);
        }
        checkCharacters(*title);
        const auto [first, isNew] = seen.emplace(title->text, title->offset);
        if (!isNew && !isBlank) {
            tell("content.title-doubled", title->offset,
                 where() + "the title " + inQuotes(title->text) + " stands in line " +
                     std::to_string(m_places.at(first->second).line) + " already");
        }
    }

    void checkCharacters(const TolerantValue& text) {
        const std::string character = TextLayout::characterWithoutFont(text.text);
        if (!character.empty()) {
            tell("content.characters", text.offset,
                 where() + "no font here has the character " + character + " (" + codeOf(character) + ")");
        }
    }

    void checkIcon(const TolerantValue& item) {
        const TolerantValue* icon = find(item, "icon");
        if (icon == nullptr || icon->kind != JSONKind::string) {
            return;
        }
        if (const auto known = m_lacking.find(icon->text); known != m_lacking.end()) {
            ++known->second.rows;
        } else if (!UIImage::imageNamed(icon->text)) {
            m_lacking.emplace(icon->text, Lacking{icon->offset, where()});
        }
    }

    /// An icon that is lacking is told once, where it comes first.
    void tellLackingIcons() {
        const std::vector<std::string> known = m_lacking.empty() ? std::vector<std::string>() : iconNames();
        for (const std::string& broken : known) { // which is told of the catalogue
            m_lacking.erase(broken);
        }
        if (!hasCatalog()) { // as is this
            m_lacking.clear();
        }
        for (const auto& [name, lacking] : m_lacking) {
            const std::string rows = lacking.rows == 1 ? "" : " (in " + std::to_string(lacking.rows) + " rows)";
            tell("content.icon", lacking.offset,
                 lacking.where + (name.empty()
                                      ? "the icon is empty; the row is shown without one" + rows
                                      : "there is no icon " + inQuotes(name) + rows + suggestionInQuotes(name, known)));
        }
    }

    /// Sections and items count from 1, as a reader of the file counts them.
    [[nodiscard]] std::string where() const {
        return "section " + std::to_string(m_section) + (m_item > 0 ? ", item " + std::to_string(m_item) : "") + ": ";
    }

    void tell(std::string_view rule, std::size_t offset, std::string what) {
        m_findings.push_back(findingOf(rule, m_path, m_places.at(offset), std::move(what)));
    }

    TextPlaces m_places;
    std::string m_path;
    TitleFit m_fit;
    std::size_t m_section = 0;
    std::size_t m_item = 0;
    std::map<std::string, Lacking> m_lacking; // icons
    Findings m_findings;
};

/// What the file is saved as, when that is not UTF-8; empty for one that may be.
std::string foreignEncoding(std::string_view text) {
    if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF")) {
        return "UTF-16";
    }
    if (text.starts_with("{\\rtf") || text.starts_with("PK\x03\x04")) {
        return "a word processor's document, no plain text";
    }
    const bool hasZero = text.substr(0, 4).find('\0') != std::string_view::npos;
    return hasZero ? "UTF-16 or UTF-32" : "";
}

/// Each byte that is no UTF-8 as the character that it is in Latin-1, so that the file can be read on.
std::string fromLatin1(std::string_view text) {
    std::string result;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t sound = std::min(firstInvalidUTF8(text.substr(begin)), text.size() - begin);
        result += text.substr(begin, sound);
        begin += sound;
        if (begin < text.size()) {
            const auto byte = static_cast<unsigned char>(text[begin++]);
            result += static_cast<char>(0xC0 | (byte >> 6));
            result += static_cast<char>(0x80 | (byte & 0x3F));
        }
    }
    return result;
}

/// What decides in the end: a file that the extension refuses has an error, whatever else was found.
void addRefusal(std::string_view text, const std::string& path, Findings& findings) {
    const auto decoded =
        hasErrors(findings) ? Result(std::vector<ModeSectionDTO>()) : decodeModeList(std::string(text));
    if (!decoded) {
        const Failure& failure = decoded.failure();
        findings.push_back(findingOf("content.syntax", path, failure.place, failure.what));
    }
}

} // namespace

Findings checkContentText(std::string_view whole, const std::string& path) {
    if (const std::string encoding = foreignEncoding(whole); !encoding.empty()) {
        return {findingOf("content.encoding", path, std::nullopt, "the file is " + encoding + "; save it as UTF-8")};
    }
    std::string_view text = whole;
    text.remove_prefix(text.starts_with(byteOrderMark) ? byteOrderMark.size() : 0);
    Findings findings;
    std::string readable;
    if (const std::size_t invalid = firstInvalidUTF8(text); invalid != std::string_view::npos) {
        findings.push_back(findingOf("content.encoding", path, TextPlaces(text).at(invalid),
                                     "the file is not UTF-8 (Latin-1, perhaps); save it as UTF-8"));
        readable = fromLatin1(text);
        text = readable;
    }
    const Findings inList = ListCheck(text, path).check(readTolerantly(text));
    findings.insert(findings.end(), inList.begin(), inList.end());
    addRefusal(text, path, findings);
    tidy(findings);
    return findings;
}

Result<Findings> checkContent(const std::filesystem::path& file) {
    const Result<std::string> text = readWholeFile(file);
    if (!text) {
        return text.failure();
    }
    return checkContentText(text.value(), file.string());
}

Findings checkContentName(const std::filesystem::path& file, ContentPlace place) {
    const std::string name = file.stem().string();
    if (currentOptionFromRawValue(name)) {
        return {};
    }
    std::vector<std::string> known;
    for (const CurrentOption option : contentLoadOrder()) {
        known.push_back(rawValue(option));
    }
    const std::string nearest = suggestionInQuotes(name, known);
    if (nearest.empty() && place == ContentPlace::elsewhere) {
        return {};
    }
    return {findingOf("content.file-name", file.string(), std::nullopt,
                      "no list of the extension is named " + inQuotes(name) + ", so it is not read" + nearest)};
}
