#include "content/ModeListDecoder.h"

#include <optional>
#include <string_view>
#include <utility>

namespace {

/// Turns a parsed document into records, and stops at the first value that does not fit.
class ModeListDecoder {
public:
    explicit ModeListDecoder(const JSONDocument& document) : m_document(document) {}

    Result<std::vector<ModeSectionDTO>> decode() {
        std::vector<ModeSectionDTO> sections;
        if (decodeRoot(sections)) {
            return sections;
        }
        return m_failure;
    }

private:
    bool decodeRoot(std::vector<ModeSectionDTO>& sections) {
        const JSONValue root = m_document.root();
        if (!root.is(JSONKind::array)) {
            return fail("the file must hold an array of sections, but holds " + describe(root), root);
        }
        sections.reserve(root.elements().size());
        for (const JSONValue element : root.elements()) {
            ++m_section;
            if (!decodeSection(element, sections.emplace_back())) {
                return false;
            }
        }
        return true;
    }

    bool decodeSection(JSONValue value, ModeSectionDTO& section) {
        m_item = 0;
        if (!value.is(JSONKind::object)) {
            return fail("must be an object, but is " + describe(value), value);
        }
        const std::optional<JSONValue> items = decodeText(value, "sectionTitle", section.sectionTitle)
                                                   ? require(value, "items", JSONKind::array, "an array of items")
                                                   : std::nullopt;
        if (!items) {
            return false;
        }
        section.items.reserve(items->elements().size());
        for (const JSONValue element : items->elements()) {
            ++m_item;
            if (!decodeItem(element, section.items.emplace_back())) {
                return false;
            }
        }
        return true;
    }

    bool decodeItem(JSONValue value, ModeItemDTO& item) {
        if (!value.is(JSONKind::object)) {
            return fail("must be an object, but is " + describe(value), value);
        }
        return decodeText(value, "icon", item.icon) && decodeText(value, "title", item.title) &&
               decodeText(value, "subtitle", item.subtitle) && decodeBoolean(value, "isSelected", item.isSelected);
    }

    bool decodeText(JSONValue object, std::string_view key, std::string& text) {
        const std::optional<JSONValue> value = require(object, key, JSONKind::string, "a text");
        if (value) {
            text = *value->string();
        }
        return value.has_value();
    }

    bool decodeBoolean(JSONValue object, std::string_view key, bool& flag) {
        const std::optional<JSONValue> value = require(object, key, JSONKind::boolean, "true or false");
        if (value) {
            flag = *value->boolean();
        }
        return value.has_value();
    }

    std::optional<JSONValue> require(JSONValue object, std::string_view key, JSONKind kind, const char* expected) {
        const std::optional<JSONValue> value = object.find(key);
        if (!value) {
            fail(quoted(key) + " is missing", object);
            return std::nullopt;
        }
        if (!value->is(kind)) {
            fail(quoted(key) + " must be " + expected + ", but is " + describe(*value), *value);
            return std::nullopt;
        }
        return value;
    }

    static std::string quoted(std::string_view key) { return std::string(1, '"').append(key) + '"'; }

    static std::string describe(JSONValue value) {
        switch (value.kind()) {
        case JSONKind::null:
            return "null";
        case JSONKind::boolean:
            return *value.boolean() ? "true" : "false";
        case JSONKind::number:
            return "a number";
        case JSONKind::string:
            return "a text";
        case JSONKind::array:
            return "an array";
        case JSONKind::object:
            return "an object";
        }
        return {};
    }

    /// Sections and items count from 1, as a reader of the file counts them.
    bool fail(const std::string& what, JSONValue where) {
        std::string place;
        if (m_section > 0) {
            place = "section " + std::to_string(m_section);
            place += m_item > 0 ? ", item " + std::to_string(m_item) + ": " : ": ";
        }
        m_failure = {place + what, m_document.placeOf(where)};
        return false;
    }

    const JSONDocument& m_document;
    std::size_t m_section = 0;
    std::size_t m_item = 0;
    Failure m_failure;
};

} // namespace

Result<std::vector<ModeSectionDTO>> decodeModeList(std::string text) {
    const Result<JSONDocument> document = JSONDocument::parse(std::move(text));
    if (!document) {
        return document.failure();
    }
    return decodeModeList(document.value());
}

Result<std::vector<ModeSectionDTO>> decodeModeList(const JSONDocument& document) {
    return ModeListDecoder(document).decode();
}
