#include "simulator/check/ListCheck.h"

#include "platform/foundation/Nearest.h"
#include "platform/foundation/Text.h"
#include "platform/graphics/TextLayout.h"
#include "platform/graphics/UIImage.h"
#include "simulator/check/CatalogCheck.h"
#include "simulator/check/ListSchema.h"
#include "simulator/check/Rules.h"
#include "simulator/check/TextCursor.h"
#include "simulator/check/TitleFit.h"

#include <algorithm>
#include <filesystem>

namespace {

std::string describe(const TolerantValue& value) {
    switch (value.kind) {
    case JSONKind::null:
        return "null";
    case JSONKind::boolean:
        return value.flag ? "true" : "false";
    case JSONKind::number:
        return "the number " + value.text;
    case JSONKind::string:
        return "the text " + quotedShort(value.text);
    case JSONKind::array:
        return "a list, [ … ]";
    case JSONKind::object:
        return "an object, { … }";
    }
    return {};
}

/// The first character that nobody sees, spaces aside: "U+200B".
std::string invisibleIn(std::string_view name) {
    for (; !name.empty(); name.remove_prefix(1)) {
        if (name.front() != ' ' && invisibleBytes(name) > 0) {
            return codeOf(name);
        }
    }
    return {};
}

/// The two kinds of objects in a list.
struct Level {
    const std::vector<ListKey>& keys;
    const char* name;
};
const Level sectionLevel{sectionKeys(), "a section"};
const Level itemLevel{itemKeys(), "an item"};

const Level& otherThan(const Level& level) {
    return &level == &itemLevel ? sectionLevel : itemLevel;
}

bool isKey(const Level& level, std::string_view name) {
    return std::any_of(level.keys.begin(), level.keys.end(), [&](const ListKey& key) { return key.name == name; });
}

/// The values of an object by the keys that are meant.
using Members = std::map<std::string_view, const TolerantValue*>;
using TitlesSeen = std::map<std::string_view, std::size_t>; // with the offset of the first

/// None for what is no array.
const std::vector<TolerantValue>& elementsOf(const TolerantValue& value) {
    static const std::vector<TolerantValue> none;
    return value.kind == JSONKind::array ? value.elements : none;
}

class ListCheck {
public:
    ListCheck(const TextPlaces& places, Slips& slips) : m_places(places), m_slips(slips) {}

    void check(const TolerantValue& root) {
        TitlesSeen titles;
        if (root.keys.size() == 1 && root.elements.front().kind == JSONKind::array &&
            !isKey(sectionLevel, root.keys.front().second)) {
            tell("content.root", root.offset,
                 "the file must hold the list alone; take { " + quotedShort(root.keys.front().second) +
                     ": and its } away");
            return checkSections(root.elements.front(), titles);
        }
        if (root.kind == JSONKind::object) {
            tell("content.root", root.offset,
                 "the file must hold a list of sections, [ … ], but holds an object, { … }; put [ before it and ] "
                 "after it");
            checkSection(root, titles);
        } else if (root.kind != JSONKind::array && m_slips.empty()) {
            tell("content.root", root.offset,
                 "the file must hold a list of sections, [ … ], but holds " + describe(root));
        }
        const bool isNested = elementsOf(root).size() == 1 && root.elements.front().kind == JSONKind::array;
        if (isNested) {
            tell("content.root", root.elements.front().offset, "one pair of [ ] too many; take this one out");
        }
        checkSections(isNested ? root.elements.front() : root, titles);
    }

private:
    void checkSections(const TolerantValue& list, TitlesSeen& titles) {
        for (const TolerantValue& section : elementsOf(list)) {
            checkSection(section, titles);
        }
    }

    void checkSection(const TolerantValue& section, TitlesSeen& titles) {
        ++m_section;
        m_item = 0;
        TitlesSeen titlesOfItems;
        if (isOfOther(sectionLevel, section)) {
            tell("content.level", section.offset,
                 "this item stands among the sections; it belongs to the \"items\" of one", Slips::Kind::habit);
            checkItem(section, titlesOfItems);
            return;
        }
        const Members members = membersOf(section, sectionLevel);
        checkTitle(members, "sectionTitle", titles);
        const auto items = members.find("items");
        if (items == members.end()) {
            return;
        }
        for (const TolerantValue& item : elementsOf(*items->second)) {
            ++m_item;
            if (isOfOther(itemLevel, item)) {
                tell("content.level", item.offset,
                     "this section stands among the items; close those before it with ] }", Slips::Kind::habit);
                checkSection(item, titles);
            } else {
                checkItem(item, titlesOfItems);
            }
        }
    }

    void checkItem(const TolerantValue& item, TitlesSeen& titles) {
        const Members members = membersOf(item, itemLevel);
        checkTitle(members, "title", titles);
        if (const TolerantValue* icon = textOf(members, "icon")) {
            checkIcon(*icon);
        }
        if (const TolerantValue* subtitle = textOf(members, "subtitle")) {
            checkCharacters(*subtitle);
        }
    }

    /// Whether an object has keys of the other kind of objects alone, and more than one.
    static bool isOfOther(const Level& level, const TolerantValue& object) {
        const auto count = [&](const Level& other) {
            return std::count_if(object.keys.begin(), object.keys.end(),
                                 [&](const auto& key) { return isKey(other, key.second); });
        };
        return count(level) == 0 && count(otherThan(level)) > 1;
    }

    // Keys and kinds.

    /// Of two equal keys the last one counts. A key that is nearly a missing one is that one.
    Members membersOf(const TolerantValue& object, const Level& level) {
        Members members;
        if (object.kind != JSONKind::object) {
            tell("content.key-type", object.offset, "must be an object, { … }, but is " + describe(object));
            return members;
        }
        std::vector<std::size_t> unknown;
        for (std::size_t i = 0; i < object.keys.size(); ++i) {
            const std::string& name = object.keys[i].second;
            if (!isKey(level, name)) {
                unknown.push_back(i);
            } else if (!members.insert_or_assign(name, &object.elements[i]).second) {
                tell("content.key-doubled", object.keys[i].first,
                     quotedShort(name) + " stands here twice; the last one counts");
            }
        }
        for (const std::size_t index : unknown) {
            addUnknown(object, index, unknown.size(), level, members);
        }
        checkMembers(object, level, members);
        return members;
    }

    void addUnknown(const TolerantValue& object, std::size_t index, std::size_t unknown, const Level& level,
                    Members& members) {
        const auto& [offset, name] = object.keys[index];
        const TolerantValue& value = object.elements[index];
        const std::string unseen = invisibleIn(name);
        const std::string what = quotedShort(name) + (unseen.empty() ? "" : ", with the invisible " + unseen + ",") +
                                 " is no key of " + level.name;
        if (const ListKey* meant = meantKey(name, value, unknown, level, members)) {
            tell("content.key-misspelt", offset, what + "; did you mean " + quotedShort(meant->name) + "?",
                 Slips::Kind::habit);
            members.emplace(meant->name, &value);
        } else {
            const Level& other = otherThan(level);
            tell("content.key-unknown", offset,
                 what + (isKey(other, name) ? ", but of " + std::string(other.name) : "") + ", and is passed over",
                 Slips::Kind::habit);
        }
    }

    /// The missing key that is probably meant: one that is written nearly so, or the only one, for which the value
    /// fits.
    static const ListKey* meantKey(const std::string& name, const TolerantValue& value, std::size_t unknown,
                                   const Level& level, const Members& members) {
        std::vector<std::string> missing;
        const ListKey* last = nullptr;
        for (const ListKey& key : level.keys) {
            if (!members.contains(key.name)) {
                missing.emplace_back(key.name);
                last = &key;
            }
        }
        if (const auto nearest = nearestName(name, missing)) {
            return &*std::find_if(level.keys.begin(), level.keys.end(),
                                  [&](const ListKey& key) { return key.name == *nearest; });
        }
        return missing.size() == 1 && unknown == 1 && last->kind == value.kind ? last : nullptr;
    }

    void checkMembers(const TolerantValue& object, const Level& level, const Members& members) {
        for (const ListKey& key : level.keys) {
            if (const auto member = members.find(key.name); member != members.end()) {
                checkKind(key, *member->second);
            } else if (object.isWhole) {
                tell("content.key-missing", object.offset, quotedShort(key.name) + " is missing");
            }
        }
    }

    void checkKind(const ListKey& key, const TolerantValue& value) {
        if (value.kind == key.kind) {
            return;
        }
        const bool isQuotedBoolean = key.kind == JSONKind::boolean && (value.text == "true" || value.text == "false");
        m_slips.forget("content.quotes", value.offset); // quotes would not help
        tell("content.key-type", value.offset,
             quotedShort(key.name) + " must be " + std::string(key.expected) + ", but is " + describe(value) +
                 (isQuotedBoolean ? "; take its quotes away" : ""));
    }

    // What the values say.

    static const TolerantValue* textOf(const Members& members, std::string_view key) {
        const auto member = members.find(key);
        return member == members.end() || member->second->kind != JSONKind::string ? nullptr : member->second;
    }

    void checkTitle(const Members& members, std::string_view key, TitlesSeen& seen) {
        const TolerantValue* title = textOf(members, key);
        if (title == nullptr) {
            return;
        }
        const bool isOfSection = key == "sectionTitle"; // which may do without a header
        const std::string name = isOfSection ? "the section title " : "the title ";
        const bool isBlank = trimmingWhitespaceAndNewlines(title->text).empty();
        if (isBlank && !(isOfSection && title->text.empty())) {
            tell("content.title-empty", title->offset,
                 name + (isOfSection ? "is nothing but spaces; without a header it is \"\"" : "is empty"));
        }
        const std::string problem = isOfSection ? m_fit.problemOfSection(title->text) : m_fit.problemOfRow(title->text);
        if (!problem.empty()) {
            tell("content.title-cut", title->offset, name + problem);
        }
        checkCharacters(*title);
        const auto [first, isNew] = seen.emplace(title->text, title->offset);
        if (!isNew && !isBlank) {
            tell("content.title-doubled", title->offset,
                 "the title " + quotedShort(title->text) + " stands in line " +
                     std::to_string(m_places.lineAt(first->second)) + " already");
        }
    }

    void checkCharacters(const TolerantValue& text) {
        const std::string character = TextLayout::characterWithoutFont(text.text);
        if (!character.empty()) {
            tell("content.characters", text.offset,
                 "no font here has the character " + character + " (" + codeOf(character) + ")", Slips::Kind::habit);
        }
    }

    void checkIcon(const TolerantValue& icon) {
        if (icon.text.empty()) {
            tell("content.icon", icon.offset, "the icon is empty; the row is shown without one", Slips::Kind::habit);
            return;
        }
        const auto [known, isNew] = m_isIconKnown.try_emplace(icon.text, true);
        if (isNew) { // a broken one, and a lacking catalogue, are told elsewhere
            known->second = !m_hasCatalog || UIImage::imageNamed(icon.text) != nullptr ||
                            std::binary_search(m_icons.begin(), m_icons.end(), icon.text);
        }
        if (!known->second) {
            const std::string name = std::filesystem::path(icon.text).stem().string(); // some write icon_dice.png
            tell("content.icon", icon.offset,
                 "there is no icon " + quotedShort(icon.text) + suggestionInQuotes(name, m_icons), Slips::Kind::habit);
        }
    }

    /// Sections and items count from 1, as a reader of the file counts them.
    void tell(std::string_view rule, std::size_t offset, std::string what, Slips::Kind kind = Slips::Kind::single) {
        const std::string item = m_item > 0 ? ", item " + std::to_string(m_item) : "";
        const std::string where = m_section > 0 ? "section " + std::to_string(m_section) + item + ": " : "";
        m_slips.tell(rule, offset, std::move(what), kind, where);
    }

    const TextPlaces& m_places;
    Slips& m_slips;
    TitleFit m_fit;
    std::size_t m_section = 0;
    std::size_t m_item = 0;
    std::map<std::string_view, bool> m_isIconKnown; // by name
    const bool m_hasCatalog = hasCatalog();
    const std::vector<std::string> m_icons = iconNames(); // sorted
};

} // namespace

void checkList(const TolerantValue& root, const TextPlaces& places, Slips& slips) {
    ListCheck(places, slips).check(root);
}
