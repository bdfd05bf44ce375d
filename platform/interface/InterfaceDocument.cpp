#include "platform/interface/InterfaceDocument.h"

#include "platform/foundation/FileReading.h"
#include "platform/foundation/TextPlaces.h"

#include <pugixml.hpp>

#include <algorithm>

namespace {

LoadedDocument refuse(const std::string& path, std::optional<TextPlace> place, const std::string& message) {
    return {nullptr, {Severity::error, path, place, message}};
}

/// Where a node's markup opens. The parser gives the place of its name.
TextPlace placeOf(const pugi::xml_node& node, const std::string& text, const TextPlaces& places) {
    const auto offset = static_cast<std::size_t>(std::max<std::ptrdiff_t>(node.offset_debug(), 0));
    const std::size_t bracket = text.rfind('<', offset);
    return places.at(bracket == std::string::npos ? offset : bracket);
}

/// The first element that is nested too deeply; walks without recursion, so that depth cannot exhaust the stack.
pugi::xml_node tooDeep(const pugi::xml_node& root) {
    pugi::xml_node node = root;
    int depth = 0;
    while (node) {
        if (depth > InterfaceDocument::greatestDepth) {
            return node;
        }
        if (const pugi::xml_node inner = node.first_child()) {
            node = inner;
            ++depth;
            continue;
        }
        while (node != root && !node.next_sibling()) {
            node = node.parent();
            --depth;
        }
        node = node == root ? pugi::xml_node() : node.next_sibling();
    }
    return {};
}

InterfaceElement convert(const pugi::xml_node& node, const std::string& text, const TextPlaces& places) {
    InterfaceElement element;
    element.place = placeOf(node, text, places);
    element.name = node.name();
    for (const pugi::xml_attribute& attribute : node.attributes()) {
        element.attributes.emplace_back(attribute.name(), attribute.value());
    }
    for (const pugi::xml_node& child : node.children()) {
        if (child.type() == pugi::node_element) {
            element.children.push_back(convert(child, text, places));
        } else if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata) {
            element.text += child.value();
        }
    }
    return element;
}

/// Whether this is a document for the phone, and if not, why.
std::string reasonToRefuse(const InterfaceElement& root) {
    if (root.name != "document") {
        return root.describe() + ": no interface document, whose outermost element is <document>";
    }
    const std::string_view type = root.value("type");
    if (type == "com.apple.InterfaceBuilder3.CocoaTouch.XIB") {
        return root.child("objects") ? "" : root.describe() + ": the document has no <objects>";
    }
    if (type == "com.apple.InterfaceBuilder3.CocoaTouch.Storyboard.XIB") {
        return root.child("scenes") ? "" : root.describe() + ": the document has no <scenes>";
    }
    const bool desktop = type.find(".Cocoa.") != std::string_view::npos;
    return root.describe() + ": type is \"" + std::string(type) + "\", " +
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

/// The object that the editor marks as the scene's controller.
const InterfaceElement* controllerAmong(const InterfaceElement& objects) {
    for (const InterfaceElement& object : objects.children) {
        if (object.value("sceneMemberID") == "viewController") {
            return &object;
        }
    }
    return nullptr;
}

} // namespace

LoadedDocument InterfaceDocument::load(const std::filesystem::path& path) {
    std::error_code error;
    if (std::filesystem::file_size(path, error) > largestSize && !error) {
        return refuse(path.string(), {}, "the file is larger than 8 MB");
    }
    const Result<std::string> text = readWholeFile(path);
    return text ? parse(path.string(), text.value()) : refuse(path.string(), {}, text.failure().what);
}

LoadedDocument InterfaceDocument::parse(std::string path, const std::string& text) {
    if (text.size() > largestSize) {
        return refuse(path, {}, "the file is larger than 8 MB");
    }
    const TextPlaces places(text);
    pugi::xml_document document;
    const pugi::xml_parse_result parsed =
        document.load_buffer(text.data(), text.size(), pugi::parse_default | pugi::parse_doctype, pugi::encoding_utf8);
    if (!parsed) {
        const auto offset = static_cast<std::size_t>(std::max<std::ptrdiff_t>(parsed.offset, 0));
        return refuse(path, places.at(offset), "malformed XML: " + std::string(parsed.description()));
    }
    if (const pugi::xml_node doctype = doctypeOf(document)) {
        return refuse(path, placeOf(doctype, text, places), "a document type (DOCTYPE) is not accepted");
    }
    if (const pugi::xml_node deep = tooDeep(document)) {
        return refuse(path, placeOf(deep, text, places),
                      "elements are nested more than " + std::to_string(greatestDepth) + " deep");
    }
    if (const pugi::xml_node second = secondRoot(document)) {
        return refuse(path, placeOf(second, text, places), "malformed XML: a second outermost element");
    }
    InterfaceElement root = convert(document.document_element(), text, places);
    if (const std::string reason = reasonToRefuse(root); !reason.empty()) {
        return refuse(path, root.place, reason);
    }
    return {std::make_shared<const InterfaceDocument>(std::move(path), std::move(root)), {}};
}

InterfaceDocument::InterfaceDocument(std::string path, InterfaceElement root)
    : m_path(std::make_shared<const std::string>(std::move(path))), m_root(std::move(root)),
      m_kind(m_root.child("scenes") ? Kind::storyboard : Kind::nib) {
    if (const InterfaceElement* scenes = m_root.child("scenes")) {
        for (const InterfaceElement& scene : scenes->children) {
            const InterfaceElement* objects = scene.child("objects");
            const InterfaceElement* controller = objects != nullptr ? controllerAmong(*objects) : nullptr;
            if (controller != nullptr) {
                m_scenes.push_back({controller, objects});
            }
        }
    }
}

std::string_view InterfaceDocument::fileName() const {
    const std::size_t slash = m_path->rfind('/');
    return slash == std::string::npos ? std::string_view(*m_path) : std::string_view(*m_path).substr(slash + 1);
}

const InterfaceScene* InterfaceDocument::sceneWith(std::string_view attribute, std::string_view value) const {
    for (const InterfaceScene& scene : m_scenes) {
        const std::string* own = scene.controller->attribute(attribute);
        if (own != nullptr && *own == value) {
            return &scene;
        }
    }
    return nullptr;
}

const InterfaceElement* InterfaceDocument::resource(std::string_view element, std::string_view name) const {
    if (const InterfaceElement* resources = m_root.child("resources")) {
        for (const InterfaceElement& entry : resources->children) {
            if (entry.name == element && entry.value("name") == name) {
                return &entry;
            }
        }
    }
    return nullptr;
}
