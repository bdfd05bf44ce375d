#include "platform/interface/InterfaceElement.h"

#include "platform/foundation/Nearest.h"
#include "platform/foundation/Text.h"
#include "platform/foundation/TextPlaces.h"

#include <pugixml.hpp>

#include <algorithm>
#include <optional>

namespace {

/// Null when no element meets the condition.
template <class Condition>
const InterfaceElement* first(const std::vector<InterfaceElement>& elements, Condition condition) {
    const auto found = std::find_if(elements.begin(), elements.end(), condition);
    return found == elements.end() ? nullptr : &*found;
}

} // namespace

const std::string* InterfaceElement::attribute(std::string_view key) const {
    for (const auto& [attributeName, attributeValue] : attributes) {
        if (attributeName == key) {
            return &attributeValue;
        }
    }
    return nullptr;
}

std::string_view InterfaceElement::value(std::string_view key) const {
    const std::string* found = attribute(key);
    return found == nullptr ? std::string_view() : std::string_view(*found);
}

const InterfaceElement* InterfaceElement::keyed(std::string_view key) const {
    return first(children, [key](const InterfaceElement& each) { return each.value("key") == key; });
}

const InterfaceElement* InterfaceElement::child(std::string_view childName) const {
    return first(children, [childName](const InterfaceElement& each) { return each.name == childName; });
}

const std::vector<InterfaceElement>& InterfaceElement::inside(std::string_view childName) const {
    static const std::vector<InterfaceElement> none;
    const InterfaceElement* found = child(childName);
    return found == nullptr ? none : found->children;
}

Failure InterfaceElement::failure(const std::string& what) const {
    return {description + ": " + what, place};
}

namespace {

/// Tells the places of ever later offsets in one walk through the text, however long its lines are.
class PlaceWalk {
public:
    explicit PlaceWalk(std::string_view text) : m_text(text) {}

    /// Where a node's markup opens. The parser gives the offset of its name.
    TextPlace of(const pugi::xml_node& node) {
        const auto offset = static_cast<std::size_t>(std::max<std::ptrdiff_t>(node.offset_debug(), 0));
        const std::size_t bracket = m_text.rfind('<', offset);
        return at(bracket == std::string_view::npos ? offset : bracket);
    }

private:
    TextPlace at(std::size_t offset) {
        const TextPlace step = TextPlaces(m_text.substr(m_offset, offset - m_offset)).at(offset - m_offset);
        m_place = step.line > 1 ? TextPlace{m_place.line + step.line - 1, step.column}
                                : TextPlace{m_place.line, m_place.column + step.column - 1};
        m_offset = offset;
        return m_place;
    }

    std::string_view m_text;
    std::size_t m_offset = 0;
    TextPlace m_place;
};

/// Steps over the tags, comments and instructions of a text that may be malformed.
class TagWalk {
public:
    explicit TagWalk(std::string_view text) : m_text(text) {}

    /// False behind the last, and where one does not end.
    bool next() {
        m_begin = m_text.find('<', m_end);
        m_end = m_begin == std::string_view::npos ? m_begin : m_begin + lengthOf(m_text.substr(m_begin));
        return m_begin != std::string_view::npos && !m_fault;
    }
    /// Of the tag's <.
    [[nodiscard]] std::size_t begin() const { return m_begin; }
    [[nodiscard]] bool isEnd() const { return m_text.substr(m_begin, 2) == "</"; }
    [[nodiscard]] bool opensElement() const {
        const std::string_view tag = m_text.substr(m_begin, m_end - m_begin);
        return !isEnd() && !tag.starts_with("<!") && !tag.starts_with("<?") && !tag.ends_with("/>");
    }
    [[nodiscard]] std::string_view name() const {
        const std::size_t start = m_begin + (isEnd() ? 2 : 1);
        return m_text.substr(start, m_text.find_first_of(" \t\r\n/>", start) - start);
    }
    [[nodiscard]] std::optional<Failure> fault() const { return m_fault; }

private:
    std::size_t lengthOf(std::string_view rest) {
        static constexpr std::pair<std::string_view, std::string_view> others[] = {
            {"<!--", "-->"}, {"<![CDATA[", "]]>"}, {"<?", "?>"}, {"<!", ">"}};
        for (const auto& [start, end] : others) {
            if (rest.starts_with(start)) {
                const std::size_t at = rest.find(end, start.size());
                return at == std::string_view::npos
                           ? failAt(0, std::string(start) + " is not closed with " + std::string(end))
                           : at + end.size();
            }
        }
        return rest.size() > 1 && std::string_view(" \t\r\n<>=&").find(rest[1]) == std::string_view::npos
                   ? lengthOfTag(rest)
                   : failAt(0, "a < begins no element; the character is written &lt;");
    }
    std::size_t lengthOfTag(std::string_view rest) {
        std::size_t at = rest.find_first_of("\"'<>", 1);
        while (at != std::string_view::npos && rest[at] != '>' && rest[at] != '<') {
            const char closing[] = {rest[at], '<'};
            const std::size_t close = rest.find_first_of(std::string_view(closing, 2), at + 1);
            if (close == std::string_view::npos || rest[close] == '<') {
                return failAt(at, "the quotes that open here are not closed; a < inside them is written &lt;");
            }
            at = rest.find_first_of("\"'<>", close + 1);
        }
        return at != std::string_view::npos && rest[at] == '>' ? at + 1 : failAt(0, "the > of this tag is missing");
    }
    std::size_t failAt(std::size_t offset, std::string what) {
        m_fault = Failure{std::move(what), TextPlaces(m_text).at(m_begin + offset)};
        return 0;
    }

    std::string_view m_text;
    std::size_t m_begin = 0;
    std::size_t m_end = 0;
    std::optional<Failure> m_fault;
};

struct OpenElement {
    std::string_view name;
    std::size_t begin;

    [[nodiscard]] std::string tag() const { return "<" + std::string(name) + ">"; }
};

/// An end tag that closes another element than the one that was opened last.
Failure wrongEnd(std::string_view text, const TagWalk& end, const std::vector<OpenElement>& open) {
    const TextPlaces places(text);
    const auto lineOf = [&](std::size_t offset) { return " in line " + std::to_string(places.at(offset).line); };
    const std::string tag = "</" + std::string(end.name()) + ">";
    if (open.empty()) {
        return {tag + " closes nothing", places.at(end.begin())};
    }
    const OpenElement& last = open.back();
    const bool closesOther =
        std::any_of(open.begin(), open.end(), [&](const OpenElement& each) { return each.name == end.name(); });
    if (closesOther) {
        return {last.tag() + " is not closed; " + tag + lineOf(end.begin()) + " closes what is around it",
                places.at(last.begin)};
    }
    return {tag + " closes nothing; " + last.tag() + lineOf(last.begin) + " is to be closed first",
            places.at(end.begin())};
}

/// What is wrong with the tags. The parser tells less of it, and takes some.
std::optional<Failure> faultOfTags(std::string_view text) {
    std::vector<OpenElement> open;
    TagWalk walk(text);
    while (walk.next()) {
        if (walk.opensElement()) {
            open.push_back({walk.name(), walk.begin()});
        } else if (walk.isEnd() && (open.empty() || open.back().name != walk.name())) {
            return wrongEnd(text, walk, open);
        } else if (walk.isEnd()) {
            open.pop_back();
        }
    }
    if (!walk.fault() && !open.empty()) {
        return Failure{open.back().tag() + " is not closed before the file ends",
                       TextPlaces(text).at(open.back().begin)};
    }
    return walk.fault();
}

/// Why the bytes are no text; none for those that are.
std::optional<Failure> faultOfBytes(const std::string& text) {
    if (trimmingWhitespaceAndNewlines(text).empty()) {
        return Failure{"the file is empty", TextPlace{}};
    }
    if (text.find('\0') < 4 || text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF")) {
        return Failure{"the file is UTF-16; save it as UTF-8", TextPlace{}};
    }
    int line = 1;
    for (std::size_t begin = 0; begin < text.size(); ++line) {
        const std::size_t end = std::min(text.find('\n', begin), text.size() - 1) + 1;
        if (!isValidUTF8(std::string_view(text).substr(begin, end - begin))) {
            return Failure{"a character in this line is no UTF-8; save the file as UTF-8", TextPlace{line, 1}};
        }
        begin = end;
    }
    return std::nullopt;
}

/// Finds the first element that is nested too deeply, without recursion: depth cannot exhaust the stack.
struct DepthCheck : pugi::xml_tree_walker {
    pugi::xml_node tooDeep;

    bool for_each(pugi::xml_node& node) override {
        tooDeep = depth() >= greatestElementDepth ? node : pugi::xml_node();
        return !tooDeep;
    }
};

InterfaceElement convert(const pugi::xml_node& node, PlaceWalk& places) {
    InterfaceElement element;
    element.place = places.of(node);
    element.name = node.name();
    for (const pugi::xml_attribute& attribute : node.attributes()) {
        element.attributes.emplace_back(attribute.name(), attribute.value());
    }
    const std::string_view id = element.id();
    element.description = "<" + element.name + (id.empty() ? "" : " id=\"" + std::string(id) + "\"") + ">";
    for (const pugi::xml_node& child : node.children()) {
        if (child.type() == pugi::node_element) {
            element.children.push_back(convert(child, places));
        } else if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata) {
            element.text += child.value();
        }
    }
    return element;
}

pugi::xml_node doctypeOf(const pugi::xml_document& document) {
    return document.find_child([](const pugi::xml_node& node) { return node.type() == pugi::node_doctype; });
}

pugi::xml_node secondRoot(const pugi::xml_document& document) {
    const pugi::xml_node first = document.document_element();
    return document.find_child(
        [&](const pugi::xml_node& node) { return node.type() == pugi::node_element && node != first; });
}

} // namespace

Result<InterfaceElement> readElements(const std::string& text, DocumentType documentType) {
    for (const auto& fault : {faultOfBytes(text), faultOfTags(text)}) {
        if (fault) {
            return *fault;
        }
    }
    pugi::xml_document document;
    const pugi::xml_parse_result parsed =
        document.load_buffer(text.data(), text.size(), pugi::parse_default | pugi::parse_doctype, pugi::encoding_utf8);
    if (!parsed) {
        const auto offset = static_cast<std::size_t>(std::max<std::ptrdiff_t>(parsed.offset, 0));
        const bool isAttribute = parsed.status == pugi::status_bad_attribute;
        return Failure{isAttribute ? "an attribute is written name=\"value\", in straight quotes"
                                   : "malformed XML: " + std::string(parsed.description()),
                       TextPlaces(text).at(offset)};
    }
    PlaceWalk places(text);
    const pugi::xml_node doctype = doctypeOf(document);
    if (doctype && documentType == DocumentType::refused) {
        return Failure{"a document type (DOCTYPE) is not accepted", places.of(doctype)};
    }
    DepthCheck depth;
    if (!document.traverse(depth)) {
        return Failure{"elements are nested more than " + std::to_string(greatestElementDepth) + " deep",
                       places.of(depth.tooDeep)};
    }
    if (const pugi::xml_node second = secondRoot(document)) {
        return Failure{"a second outermost element", places.of(second)};
    }
    return convert(document.document_element(), places);
}
