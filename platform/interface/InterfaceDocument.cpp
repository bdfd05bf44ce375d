#include "platform/interface/InterfaceDocument.h"

#include "platform/foundation/FileReading.h"
#include "platform/foundation/NSBundle.h"
#include "platform/foundation/Nearest.h"
#include "platform/foundation/TextPlaces.h"

#include <pugixml.hpp>

#include <algorithm>
#include <map>

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

/// Finds the first element that is nested too deeply, without recursion: depth cannot exhaust the stack.
struct DepthCheck : pugi::xml_tree_walker {
    pugi::xml_node tooDeep;

    bool for_each(pugi::xml_node& node) override {
        tooDeep = depth() >= InterfaceDocument::greatestDepth ? node : pugi::xml_node();
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

const char* const storyboardType = "com.apple.InterfaceBuilder3.CocoaTouch.Storyboard.XIB";

/// Why this is no document for the phone; empty when it is one.
std::string reasonToRefuse(const InterfaceElement& root) {
    if (root.name != "document") {
        return "no interface document, whose outermost element is <document>";
    }
    const std::string_view type = root.value("type");
    if (type == "com.apple.InterfaceBuilder3.CocoaTouch.XIB") {
        return root.child("objects") ? "" : "the document has no <objects>";
    }
    if (type == storyboardType) {
        return root.child("scenes") ? "" : "the document has no <scenes>";
    }
    const bool desktop = type.find(".Cocoa.") != std::string_view::npos;
    return "type is \"" + std::string(type) + "\", " +
           (desktop ? "a document for the desktop" : "an unknown kind of document") +
           "; one for the phone (CocoaTouch) is expected";
}

pugi::xml_node doctypeOf(const pugi::xml_document& document) {
    return document.find_child([](const pugi::xml_node& node) { return node.type() == pugi::node_doctype; });
}

pugi::xml_node secondRoot(const pugi::xml_document& document) {
    const pugi::xml_node first = document.document_element();
    return document.find_child(
        [&](const pugi::xml_node& node) { return node.type() == pugi::node_element && node != first; });
}

/// The elements of a text without a document type, too much depth or a second root.
Result<InterfaceElement> rootOf(const std::string& text) {
    pugi::xml_document document;
    const pugi::xml_parse_result parsed =
        document.load_buffer(text.data(), text.size(), pugi::parse_default | pugi::parse_doctype, pugi::encoding_utf8);
    if (!parsed) {
        const auto offset = static_cast<std::size_t>(std::max<std::ptrdiff_t>(parsed.offset, 0));
        return Failure{"malformed XML: " + std::string(parsed.description()), TextPlaces(text).at(offset)};
    }
    PlaceWalk places(text);
    if (const pugi::xml_node doctype = doctypeOf(document)) {
        return Failure{"a document type (DOCTYPE) is not accepted", places.of(doctype)};
    }
    DepthCheck depth;
    if (!document.traverse(depth)) {
        return Failure{"elements are nested more than " + std::to_string(InterfaceDocument::greatestDepth) + " deep",
                       places.of(depth.tooDeep)};
    }
    if (const pugi::xml_node second = secondRoot(document)) {
        return Failure{"malformed XML: a second outermost element", places.of(second)};
    }
    return convert(document.document_element(), places);
}

/// The object that the editor marks as the scene's controller.
bool isController(const InterfaceElement& object) {
    return object.value("sceneMemberID") == "viewController";
}

std::vector<InterfaceScene> scenesOf(const InterfaceElement& root) {
    std::vector<InterfaceScene> found;
    for (const InterfaceElement& scene : root.inside("scenes")) {
        if (const InterfaceElement* controller = first(scene.inside("objects"), isController)) {
            found.push_back({controller, scene.child("objects")});
        }
    }
    return found;
}

} // namespace

std::filesystem::path InterfaceDocument::pathIn(const NSBundle& bundle, const std::string& name, Kind kind) {
    const char* extension = kind == Kind::nib ? "xib" : "storyboard";
    const std::filesystem::path path = bundle.bundlePath() / (name + "." + extension);
    std::error_code error;
    const bool isTakenAway = std::filesystem::exists(path, error); // though the bundle does not give it
    return bundle.URLForResource(name, extension)
        .value_or(isTakenAway ? std::filesystem::path(path.string() + " (taken away)") : path);
}

InterfaceDocument::Loaded InterfaceDocument::shared(const std::filesystem::path& path, Kind kind) {
    struct Known {
        std::filesystem::file_time_type changed;
        std::shared_ptr<const InterfaceDocument> document;
    };
    static std::map<std::string, Known> documents; // by path
    std::error_code error;
    const auto changed = std::filesystem::last_write_time(path, error);
    auto known = documents.find(path.native());
    if (error || known == documents.end() || known->second.changed != changed) {
        Loaded loaded = load(path);
        if (!loaded) {
            return loaded;
        }
        known = documents.insert_or_assign(path.native(), Known{changed, std::move(loaded).value()}).first;
    }
    const std::shared_ptr<const InterfaceDocument>& document = known->second.document;
    if (document->kind() != kind) {
        return document->root().failure(kind == Kind::nib ? "a storyboard stands where a nib is expected"
                                                          : "a nib stands where a storyboard is expected");
    }
    return document;
}

InterfaceDocument::Loaded InterfaceDocument::load(const std::filesystem::path& path) {
    std::error_code error;
    if (std::filesystem::file_size(path, error) > largestSize && !error) {
        return Failure{"the file is larger than 8 MB"};
    }
    const Result<std::string> text = readWholeFile(path);
    return text ? parse(path.string(), text.value()) : text.failure();
}

InterfaceDocument::Loaded InterfaceDocument::parse(std::string path, const std::string& text) {
    if (text.size() > largestSize) {
        return Failure{"the file is larger than 8 MB"};
    }
    Result<InterfaceElement> root = rootOf(text);
    if (!root) {
        return root.failure();
    }
    if (const std::string reason = reasonToRefuse(root.value()); !reason.empty()) {
        return root.value().failure(reason);
    }
    return std::make_shared<const InterfaceDocument>(std::move(path), std::move(root).value());
}

InterfaceDocument::InterfaceDocument(std::string path, InterfaceElement root)
    : m_path(std::move(path)), m_root(std::move(root)),
      m_kind(m_root.value("type") == storyboardType ? Kind::storyboard : Kind::nib), m_scenes(scenesOf(m_root)) {}

Result<InterfaceScene> InterfaceDocument::initialScene() const {
    const std::string_view id = m_root.value("initialViewController");
    for (const InterfaceScene& scene : m_scenes) {
        if (!id.empty() && scene.controller->id() == id) {
            return scene;
        }
    }
    return m_root.failure("the storyboard has no initial controller");
}

Result<InterfaceScene> InterfaceDocument::sceneWithIdentifier(const std::string& identifier) const {
    std::vector<std::string> known;
    for (const InterfaceScene& scene : m_scenes) {
        known.emplace_back(scene.controller->value("storyboardIdentifier"));
        if (known.back() == identifier && !identifier.empty()) {
            return scene;
        }
    }
    return m_root.failure("there is no scene with the identifier \"" + identifier + "\"" +
                          suggestion(identifier, known));
}

const InterfaceElement* InterfaceDocument::resource(std::string_view element, std::string_view name) const {
    return first(m_root.inside("resources"),
                 [&](const InterfaceElement& entry) { return entry.name == element && entry.value("name") == name; });
}
