#include "platform/interface/ElementCoder.h"

#include "platform/graphics/UIImage.h"

#include <algorithm>

std::optional<std::string> ElementCoder::string(std::string_view key) const {
    if (const std::string* text = m_element.attribute(key)) {
        return *text;
    }
    const InterfaceElement* child = keyed(key);
    if (child == nullptr) {
        return std::nullopt;
    }
    if (child->name != "string" && child->name != "mutableString") {
        m_reader.error(*child, std::string(key) + " is no text");
        return std::nullopt;
    }
    return child->text;
}

std::optional<double> ElementCoder::number(std::string_view key) const {
    const std::string* text = scalar(key);
    if (text == nullptr) {
        return std::nullopt;
    }
    const std::optional<double> number = parseNumber(*text);
    if (!number) {
        reportInvalid(key, "a number");
    }
    return number;
}

std::optional<bool> ElementCoder::boolean(std::string_view key) const {
    const std::string* text = scalar(key);
    return text != nullptr ? m_reader.boolean(m_element, key, *text) : std::nullopt;
}

std::optional<CGRect> ElementCoder::rect(std::string_view key) const {
    const InterfaceElement* child = keyed(key, {"rect"});
    return child != nullptr ? m_reader.rect(*child) : std::nullopt;
}

std::optional<UIEdgeInsets> ElementCoder::insets(std::string_view key) const {
    const InterfaceElement* child = keyed(key, {"inset", "edgeInsets"});
    return child != nullptr ? m_reader.insets(*child) : std::nullopt;
}

std::optional<std::shared_ptr<NSObject>> ElementCoder::object(std::string_view key) const {
    using Object = std::shared_ptr<NSObject>;
    if (const std::string* name = m_element.attribute(key)) {
        const bool symbol = m_element.value("catalog") == "system";
        return Object(symbol ? nullptr : UIImage::imageNamed(*name));
    }
    const InterfaceElement* child = m_reader.markRead(m_element.keyed(key));
    if (child == nullptr) {
        return std::nullopt;
    }
    if (child->name == "nil") {
        return Object();
    }
    if (child->name == "color") {
        return Object(m_reader.color(*child));
    }
    if (child->name == "fontDescription") {
        const Object font = m_reader.font(*child);
        return font ? std::optional(font) : std::nullopt;
    }
    m_reader.error(*child, std::string(key) + " is no colour, font or image");
    return std::nullopt;
}

const NSCoder* ElementCoder::child(std::string_view element, std::string_view key) const {
    for (const InterfaceElement& child : m_element.children) {
        if (child.name == element && child.value("key") == key) {
            m_reader.markRead(&child);
            return m_children.emplace_back(std::make_unique<ElementCoder>(child, m_reader)).get();
        }
    }
    return nullptr;
}

void ElementCoder::reportInvalid(std::string_view key, std::string_view expected) const {
    const std::string* text = m_element.attribute(key);
    if (const InterfaceElement* child = m_element.keyed(key); text == nullptr && child != nullptr) {
        text = child->attribute("value");
    }
    const std::string found = text != nullptr ? "\"" + *text + "\"" : "of another kind";
    m_reader.error(m_element, std::string(key) + " is " + found + ", " + std::string(expected) + " is expected");
}

const std::string* ElementCoder::scalar(std::string_view key) const {
    if (const std::string* text = m_element.attribute(key)) {
        return text;
    }
    const InterfaceElement* child = keyed(key);
    const std::string* text = child != nullptr ? child->attribute("value") : nullptr;
    if (child != nullptr && text == nullptr) {
        m_reader.error(*child, std::string(key) + " has no value");
    }
    return text;
}

const InterfaceElement* ElementCoder::keyed(std::string_view key) const {
    const InterfaceElement* child = m_reader.markRead(m_element.keyed(key));
    return child != nullptr && child->name != "nil" ? child : nullptr;
}

const InterfaceElement* ElementCoder::keyed(std::string_view key, std::initializer_list<std::string_view> names) const {
    const InterfaceElement* child = keyed(key);
    if (child != nullptr && std::find(names.begin(), names.end(), child->name) == names.end()) {
        m_reader.error(*child, std::string(key) + " is expected to be a <" + std::string(*names.begin()) + ">");
        return nullptr;
    }
    return child;
}
