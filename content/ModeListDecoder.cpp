#include "content/ModeListDecoder.h"

#include "platform/foundation/JSONReader.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <utility>

namespace {

/// What an object of the file must have, in the order of reading.
struct Field {
    std::string_view key;
    JSONKind kind;
    const char* expected;
};
template <std::size_t count>
using Fields = std::array<Field, count>;

constexpr Fields<2> sectionFields{
    {{"sectionTitle", JSONKind::string, "a text"}, {"items", JSONKind::array, "an array of items"}}};
constexpr Fields<4> itemFields{{{"icon", JSONKind::string, "a text"},
                                {"title", JSONKind::string, "a text"},
                                {"subtitle", JSONKind::string, "a text"},
                                {"isSelected", JSONKind::boolean, "true or false"}}};

/// A value of the file and how many keys and values come before it.
struct Value {
    JSONToken token;
    std::size_t number = 0;
};

/// What does not fit, and the number of the key or value to blame.
struct Fault {
    std::string what;
    std::size_t number;
};

std::string describe(const JSONToken& token) {
    switch (token.kind) {
    case JSONKind::null:
        return "null";
    case JSONKind::boolean:
        return token.number != 0 ? "true" : "false";
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

/// The fields of the object that is being read. Of several values with one key the last one counts.
template <std::size_t count>
class ObjectReading {
public:
    explicit ObjectReading(const Fields<count>& fields) : m_fields(fields) {}

    void begin(std::size_t number) {
        m_number = number;
        m_values.fill(std::nullopt);
    }
    /// The value that comes next is this key's.
    void expect(std::string_view key) {
        const auto field =
            std::find_if(m_fields.begin(), m_fields.end(), [key](const Field& each) { return each.key == key; });
        m_next = static_cast<std::size_t>(field - m_fields.begin());
    }
    /// Its field, or `count` for a key that is not known.
    [[nodiscard]] std::size_t next() const { return m_next; }
    void take(const Value& value) {
        if (m_next < count) {
            m_values[m_next] = value;
        }
    }
    [[nodiscard]] const JSONToken& at(std::size_t field) const { return m_values[field]->token; }

    /// The first field that is missing or of the wrong kind.
    [[nodiscard]] std::optional<Fault> fault() const {
        for (std::size_t field = 0; field < count; ++field) {
            const auto& [key, kind, expected] = m_fields[field];
            const std::optional<Value>& value = m_values[field];
            if (!value) {
                return Fault{quoted(key) + " is missing", m_number};
            }
            if (value->token.kind != kind) {
                return Fault{quoted(key) + " must be " + expected + ", but is " + describe(value->token),
                             value->number};
            }
        }
        return std::nullopt;
    }

private:
    static std::string quoted(std::string_view key) { return std::string(1, '"').append(key) + '"'; }

    const Fields<count>& m_fields;
    std::array<std::optional<Value>, count> m_values;
    std::size_t m_next = count;
    std::size_t m_number = 0; // of the object itself
};

/// Makes records of what the reader tells. An object is judged when it ends, as its keys may come in any order.
class ModeListDecoder : public JSONVisitor {
public:
    explicit ModeListDecoder(const std::function<void(ModeSectionDTO&&)>& receive) : m_receive(receive) {}

    [[nodiscard]] const std::optional<Fault>& fault() const { return m_fault; }

    void key(std::string_view name) override {
        ++m_told;
        if (m_ignored == 0) {
            m_level == Level::item ? m_item.expect(name) : m_section.expect(name);
        }
    }

    void value(const JSONToken& token) override {
        const Value value{token, m_told++};
        const bool opens = token.kind == JSONKind::array || token.kind == JSONKind::object;
        if (m_ignored > 0 || !enter(value)) {
            m_ignored += opens ? 1 : 0;
        }
    }

    void end(std::size_t) override {
        if (m_ignored > 0) {
            --m_ignored;
            return;
        }
        if (m_level == Level::item) {
            finishItem();
        } else if (m_level == Level::section) {
            finishSection();
        }
        m_level = static_cast<Level>(static_cast<int>(m_level) - 1);
    }

private:
    /// What the innermost open array or object is.
    enum class Level { none, sections, section, items, item };

    /// Takes a value; true when it is an array or object to look into.
    bool enter(const Value& value) {
        switch (m_level) {
        case Level::none:
            return enterSections(value);
        case Level::sections:
            return enterSection(value);
        case Level::section:
            m_section.take(value);
            return m_section.next() == itemsOfSection && enterItems(value);
        case Level::items:
            return enterItem(value);
        case Level::item:
            m_item.take(value);
            break;
        }
        return false;
    }

    bool enterSections(const Value& value) {
        if (value.token.kind != JSONKind::array) {
            m_fault = {"the file must hold an array of sections, but holds " + describe(value.token), value.number};
            return false;
        }
        m_level = Level::sections;
        return true;
    }

    bool enterSection(const Value& value) {
        ++m_sectionCount;
        if (value.token.kind != JSONKind::object) {
            blameSection(noObject(value));
            return false;
        }
        m_section.begin(value.number);
        m_level = Level::section;
        return true;
    }

    bool enterItems(const Value& value) {
        m_itemCount = 0;
        m_items.clear();
        m_faultOfItems.reset();
        if (value.token.kind != JSONKind::array) {
            return false;
        }
        m_level = Level::items;
        return true;
    }

    bool enterItem(const Value& value) {
        ++m_itemCount;
        if (value.token.kind != JSONKind::object) {
            blameItem(noObject(value));
            return false;
        }
        m_item.begin(value.number);
        m_level = Level::item;
        return true;
    }

    static Fault noObject(const Value& value) {
        return {"must be an object, but is " + describe(value.token), value.number};
    }

    void finishItem() {
        if (std::optional<Fault> fault = m_item.fault()) {
            blameItem(std::move(*fault));
        } else {
            m_items.emplace_back(m_item.at(0).text, m_item.at(1).text, m_item.at(2).text, m_item.at(3).number != 0);
        }
    }

    void finishSection() {
        if (std::optional<Fault> fault = m_section.fault()) {
            blameSection(std::move(*fault));
        } else if (m_faultOfItems && !m_fault) {
            m_fault = std::move(m_faultOfItems);
        } else if (!m_fault) {
            m_receive(ModeSectionDTO(m_section.at(0).text, std::exchange(m_items, {})));
        }
    }

    // Sections and items count from 1, as a reader of the file counts them.

    void blameSection(Fault&& fault) {
        if (!m_fault) {
            m_fault = {"section " + std::to_string(m_sectionCount) + ": " + fault.what, fault.number};
        }
    }

    /// Its section may yet turn out to be wrong itself, which comes first.
    void blameItem(Fault&& fault) {
        if (!m_faultOfItems) {
            m_faultOfItems = {"section " + std::to_string(m_sectionCount) + ", item " + std::to_string(m_itemCount) +
                                  ": " + fault.what,
                              fault.number};
        }
    }

    static constexpr std::size_t itemsOfSection = 1; // the field

    const std::function<void(ModeSectionDTO&&)>& m_receive;
    std::size_t m_told = 0;    // keys and values
    std::size_t m_ignored = 0; // open arrays and objects in a value that does not matter
    Level m_level = Level::none;
    std::size_t m_sectionCount = 0;
    std::size_t m_itemCount = 0; // in this section
    ObjectReading<2> m_section{sectionFields};
    ObjectReading<4> m_item{itemFields};
    std::vector<ModeItemDTO> m_items;
    std::optional<Fault> m_faultOfItems; // the first in this section
    std::optional<Fault> m_fault;        // the first
};

} // namespace

std::optional<Failure> decodeModeList(std::string_view text, const std::function<void(ModeSectionDTO&&)>& receive) {
    ModeListDecoder decoder(receive);
    JSONReader reader(text);
    if (std::optional<Failure> failure = reader.read(decoder)) {
        return failure;
    }
    const std::optional<Fault>& fault = decoder.fault();
    return fault ? std::optional(Failure{fault->what, reader.placeOf(fault->number)}) : std::nullopt;
}

Result<std::vector<ModeSectionDTO>> decodeModeList(std::string_view text) {
    std::vector<ModeSectionDTO> sections;
    std::optional<Failure> failure =
        decodeModeList(text, [&](ModeSectionDTO&& section) { sections.push_back(std::move(section)); });
    if (failure) {
        return *failure;
    }
    return sections;
}
