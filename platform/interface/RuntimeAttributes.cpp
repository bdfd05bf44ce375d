#include "platform/interface/RuntimeAttributes.h"

#include "platform/foundation/Nearest.h"
#include "platform/interface/ElementValues.h"
#include "platform/runtime/ClassRegistry.h"

namespace {

std::optional<Value> missing(const InterfaceElement& attribute, InterfaceReport& report) {
    report.error(attribute, "the value is missing or of another type than " + std::string(attribute.value("type")));
    return std::nullopt;
}

std::optional<Value> readBoolean(const InterfaceElement& attribute, InterfaceReport& report) {
    const std::string_view word = attribute.value("value");
    if (word != "YES" && word != "NO") {
        report.error(attribute, "value is \"" + std::string(word) + "\", YES or NO is expected");
        return std::nullopt;
    }
    return Value(word == "YES");
}

std::optional<Value> readNumber(const InterfaceElement& attribute, InterfaceReport& report) {
    const InterfaceElement* child = attribute.keyed("value");
    if (child == nullptr || (child->name != "integer" && child->name != "real")) {
        return missing(attribute, report);
    }
    const std::optional<double> number = requiredNumber(*child, "value", report);
    return number ? std::optional<Value>(*number) : std::nullopt;
}

std::optional<Value> readText(const InterfaceElement& attribute) {
    if (const std::string* text = attribute.attribute("value")) {
        return Value(*text);
    }
    const InterfaceElement* child = attribute.keyed("value");
    return Value(child != nullptr ? child->text : std::string());
}

/// A value described by a child element of the type's own name.
std::optional<Value> readDescribed(std::string_view type, const InterfaceElement& attribute,
                                   const InterfaceDocument& document, InterfaceReport& report) {
    const InterfaceElement* child = attribute.keyed("value");
    if (child == nullptr || child->name != type) {
        return missing(attribute, report);
    }
    if (type == "color") {
        return Value(std::shared_ptr<NSObject>(readColor(*child, document, report)));
    }
    const std::optional<CGSize> size = readSize(*child, report);
    return size ? std::optional<Value>(*size) : std::nullopt;
}

std::optional<Value> readValue(const InterfaceElement& attribute, const InterfaceDocument& document,
                               InterfaceReport& report) {
    const std::string_view type = attribute.value("type");
    if (type == "boolean") {
        return readBoolean(attribute, report);
    }
    if (type == "number") {
        return readNumber(attribute, report);
    }
    if (type == "string" || type == "localizedString") {
        return readText(attribute);
    }
    if (type == "image") {
        return Value(std::shared_ptr<NSObject>(imageFromCatalog(std::string(attribute.value("value")))));
    }
    if (type == "nil") {
        return Value(std::shared_ptr<NSObject>());
    }
    if (type == "color" || type == "size") {
        return readDescribed(type, attribute, document, report);
    }
    const std::vector<std::string> known{"boolean", "number", "string", "localizedString",
                                         "image",   "nil",    "color",  "size"};
    report.error(attribute,
                 "values of the type \"" + std::string(type) + "\" are not supported" + suggestion(type, known));
    return std::nullopt;
}

/// Follows "layer" in "layer.cornerRadius"; `keyPath` keeps the last key. Null after an error.
std::shared_ptr<NSObject> ownerOfKey(std::shared_ptr<NSObject> object, std::string_view& keyPath,
                                     const InterfaceElement& attribute, InterfaceReport& report) {
    for (std::size_t dot = keyPath.find('.'); dot != std::string_view::npos; dot = keyPath.find('.')) {
        const std::string_view part = keyPath.substr(0, dot);
        const ObjectClass::ObjectGetter* getter = ClassRegistry::shared().classOf(*object).object(part);
        std::shared_ptr<NSObject> next = getter != nullptr ? (*getter)(*object) : nullptr;
        if (!next) {
            report.error(attribute, classNameOf(*object) + " has no part \"" + std::string(part) + "\"");
            return nullptr;
        }
        object = std::move(next);
        keyPath.remove_prefix(dot + 1);
    }
    return object;
}

void setAttribute(const InterfaceElement& attribute, const std::shared_ptr<NSObject>& object,
                  const InterfaceDocument& document, InterfaceReport& report) {
    const std::optional<Value> value = readValue(attribute, document, report);
    std::string_view key = attribute.value("keyPath");
    const std::shared_ptr<NSObject> owner = ownerOfKey(object, key, attribute, report);
    if (!owner) {
        return;
    }
    const ObjectClass& ownerClass = ClassRegistry::shared().classOf(*owner);
    const ObjectClass::PropertySetter* setter = ownerClass.property(key);
    if (setter == nullptr) {
        report.error(attribute, classNameOf(*owner) + " has no key \"" + std::string(key) + "\"" +
                                    suggestion(key, ownerClass.propertyNames()));
    } else if (value && (*setter)(*owner, *value) == Acceptance::wrongType) {
        report.error(attribute, "the key \"" + std::string(key) + "\" of " + classNameOf(*owner) + " does not take " +
                                    kindOf(*value));
    }
}

} // namespace

void setRuntimeAttributes(const InterfaceElement& element, const std::shared_ptr<NSObject>& object,
                          const InterfaceDocument& document, InterfaceReport& report) {
    if (const InterfaceElement* attributes = element.child("userDefinedRuntimeAttributes")) {
        for (const InterfaceElement& attribute : attributes->children) {
            setAttribute(attribute, object, document, report);
        }
    }
}
