#include "platform/interface/InterfaceElement.h"

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
    for (const InterfaceElement& each : children) {
        const std::string* own = each.attribute("key");
        if (own != nullptr && *own == key) {
            return &each;
        }
    }
    return nullptr;
}

const InterfaceElement* InterfaceElement::child(std::string_view childName) const {
    for (const InterfaceElement& each : children) {
        if (each.name == childName) {
            return &each;
        }
    }
    return nullptr;
}

std::string InterfaceElement::describe() const {
    const std::string_view own = id();
    return "<" + name + (own.empty() ? "" : " id=\"" + std::string(own) + "\"") + ">";
}
