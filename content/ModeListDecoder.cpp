#include "content/ModeListDecoder.h"

#include <optional>
#include <string_view>
#include <utility>

namespace {

/// Turns a parsed document into records. Whatever does not fit leaves its failure, unless there is an earlier one, and
/// reads as empty; the lists stop there.
class ModeListDecoder {
public:
    explicit ModeListDecoder(const JSONDocument& document) : m_document(document) {}

    Result<std::vector<ModeSectionDTO>> decode() {
        const JSONValue root = m_document.root();
        if (!root.is(JSONKind::array)) {
            fail("the file must hold an array of sections, but holds " + describe(root), root);
        }
        std::vector<ModeSectionDTO> sections = decodeEach<ModeSectionDTO>(
            root, m_section, [this](JSONValue section, auto& into) { decodeSection(section, into); });
        if (m_failure) {
            return *m_failure;
        }
        return sections;
    }

private:
    void decodeSection(JSONValue section, std::vector<ModeSectionDTO>& sections) {
        m_item = 0;
        expectObject(section);
        const std::string_view title = decodeText(section, "sectionTitle");
        const std::optional<JSONValue> items = require(section, "items", JSONKind::array, "an array of items");
        sections.emplace_back(title, decodeEach<ModeItemDTO>(items, m_item, [this](JSONValue item, auto& into) {
                                  decodeItem(item, into);
                              }));
    }

    void decodeItem(JSONValue item, std::vector<ModeItemDTO>& items) {
        expectObject(item);
        const std::string_view icon = decodeText(item, "icon");
        const std::string_view title = decodeText(item, "title");
        const std::string_view subtitle = decodeText(item, "subtitle");
        items.emplace_back(icon, title, subtitle, decodeBoolean(item, "isSelected"));
    }

    /// One record an element; `number` counts them.
    template <class Record, class Decode>
    std::vector<Record> decodeEach(std::optional<JSONValue> array, std::size_t& number, Decode decodeInto) {
        std::vector<Record> records;
        if (!array) {
            return records;
        }
        const std::vector<JSONValue> elements = array->elements();
        records.reserve(elements.size());
        for (const JSONValue element : elements) {
            ++number;
            decodeInto(element, records);
            if (m_failure) {
                break;
            }
        }
        return records;
    }

    void expectObject(JSONValue value) {
        if (!value.is(JSONKind::object)) {
            fail("must be an object, but is " + describe(value), value);
        }
    }

    std::string_view decodeText(JSONValue object, std::string_view key) {
        const std::optional<JSONValue> value = require(object, key, JSONKind::string, "a text");
        return value ? *value->string() : std::string_view();
    }

    bool decodeBoolean(JSONValue object, std::string_view key) {
        const std::optional<JSONValue> value = require(object, key, JSONKind::boolean, "true or false");
        return value && *value->boolean();
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
    void fail(const std::string& what, JSONValue where) {
        if (m_failure) {
            return;
        }
        std::string place;
        if (m_section > 0) {
            place = "section " + std::to_string(m_section);
            place += m_item > 0 ? ", item " + std::to_string(m_item) + ": " : ": ";
        }
        m_failure = {place + what, m_document.placeOf(where)};
    }

    const JSONDocument& m_document;
    std::size_t m_section = 0;
    std::size_t m_item = 0;
    std::optional<Failure> m_failure; // the first; nothing that is read after it counts
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
