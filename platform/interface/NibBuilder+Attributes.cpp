#include "platform/graphics/UIImage.h"
#include "platform/interface/NibBuilder.h"
#include "platform/runtime/ClassRegistry.h"

#include <algorithm>
#include <array>

namespace {

/// The element that holds the value; null, after an error, when there is none of those names.
const InterfaceElement* valueIn(const InterfaceElement& attribute, ElementReader& reader,
                                std::initializer_list<std::string_view> names) {
    const InterfaceElement* child = attribute.keyed("value");
    if (child != nullptr && std::find(names.begin(), names.end(), child->name) != names.end()) {
        return child;
    }
    reader.error(attribute, "the value is missing or of another type than " + std::string(attribute.value("type")));
    return nullptr;
}

std::optional<Value> readBoolean(const InterfaceElement& attribute, ElementReader& reader) {
    return reader.boolean(attribute, "value", attribute.value("value"));
}

std::optional<Value> readNumber(const InterfaceElement& attribute, ElementReader& reader) {
    const InterfaceElement* child = valueIn(attribute, reader, {"integer", "real"});
    return child != nullptr ? reader.number(*child, "value") : std::nullopt;
}

std::optional<Value> readText(const InterfaceElement& attribute, ElementReader& /*reader*/) {
    if (const std::string* text = attribute.attribute("value")) {
        return *text;
    }
    const InterfaceElement* child = attribute.keyed("value");
    return child != nullptr ? child->text : std::string();
}

std::optional<Value> readImage(const InterfaceElement& attribute, ElementReader& /*reader*/) {
    return UIImage::imageNamed(attribute.value("value"));
}

std::optional<Value> readNil(const InterfaceElement& /*attribute*/, ElementReader& /*reader*/) {
    return std::shared_ptr<NSObject>();
}

std::optional<Value> readColor(const InterfaceElement& attribute, ElementReader& reader) {
    const InterfaceElement* child = valueIn(attribute, reader, {"color"});
    const std::shared_ptr<UIColor> color = child != nullptr ? reader.color(*child) : nullptr;
    const bool toldAlready = !color && (child == nullptr || child->attribute("name") == nullptr);
    return toldAlready ? std::nullopt : std::optional<Value>(color);
}

std::optional<Value> readSize(const InterfaceElement& attribute, ElementReader& reader) {
    const InterfaceElement* child = valueIn(attribute, reader, {"size"});
    return child != nullptr ? reader.size(*child) : std::nullopt;
}

using ReadValue = std::optional<Value> (*)(const InterfaceElement& attribute, ElementReader& reader);

constexpr WordTable<ReadValue, 8> valueTypes{{
    {"boolean", &readBoolean},
    {"number", &readNumber},
    {"string", &readText},
    {"localizedString", &readText},
    {"image", &readImage},
    {"nil", &readNil},
    {"color", &readColor},
    {"size", &readSize},
}};

std::optional<Value> readValue(const InterfaceElement& attribute, ElementReader& reader) {
    const std::string_view type = attribute.value("type");
    if (const ReadValue* read = meaningOf(type, valueTypes)) {
        return (*read)(attribute, reader);
    }
    reader.error(attribute, "values of the type \"" + std::string(type) + "\" are not supported" +
                                suggestionFrom(type, valueTypes));
    return std::nullopt;
}

std::string kindOf(const Value& value) {
    static constexpr std::array<const char*, std::variant_size_v<Value>> names = {
        "a boolean", "a number", "a string", "a point", "a size", "a rect", "an object"};
    return names[value.index()];
}

/// What a key does not take although the type is right.
std::string refusedValue(const Value& value, const InterfaceElement& attribute) {
    const auto* object = std::get_if<std::shared_ptr<NSObject>>(&value);
    if (object == nullptr || *object) {
        return "this value";
    }
    const InterfaceElement* color = attribute.keyed("value");
    return color != nullptr ? "nil; there is no colour \"" + std::string(color->value("name")) + "\"" : "nil";
}

/// Follows "layer" in "layer.cornerRadius"; `keyPath` keeps the last key. Null after an error.
std::shared_ptr<NSObject> ownerOfKey(std::shared_ptr<NSObject> object, std::string_view& keyPath,
                                     const InterfaceElement& attribute, ElementReader& reader) {
    for (std::size_t dot = keyPath.find('.'); dot != std::string_view::npos; dot = keyPath.find('.')) {
        const std::string_view part = keyPath.substr(0, dot);
        const ObjectClass::ObjectGetter* getter = ClassRegistry::shared().classOf(*object).objects.find(part);
        std::shared_ptr<NSObject> next = getter != nullptr ? (*getter)(*object) : nullptr;
        if (!next) {
            reader.error(attribute, classNameOf(*object) + " has no part \"" + std::string(part) + "\"");
            return nullptr;
        }
        object = std::move(next);
        keyPath.remove_prefix(dot + 1);
    }
    return object;
}

} // namespace

/// In file order. What was there before the file is left as it is.
void NibBuilder::setAttributes(const Made& made) {
    if (!made.adopted) {
        for (const InterfaceElement& attribute : made.element->inside("userDefinedRuntimeAttributes")) {
            setAttribute(attribute, made.object);
        }
    }
}

void NibBuilder::setAttribute(const InterfaceElement& attribute, const std::shared_ptr<NSObject>& object) {
    const std::optional<Value> value = readValue(attribute, m_reader);
    std::string_view key = attribute.value("keyPath");
    const std::shared_ptr<NSObject> owner = ownerOfKey(object, key, attribute, m_reader);
    if (!owner) {
        return;
    }
    const ObjectClass& ownerClass = ClassRegistry::shared().classOf(*owner);
    const ObjectClass::PropertySetter* setter = ownerClass.properties.find(key);
    if (setter == nullptr) {
        m_reader.error(attribute, classNameOf(*owner) + " has no key \"" + std::string(key) + "\"" +
                                      suggestion(key, ownerClass.properties.names()));
        return;
    }
    const Acceptance answer = value ? (*setter)(*owner, *value) : Acceptance::accepted;
    if (answer != Acceptance::accepted) {
        m_reader.error(attribute,
                       "the key \"" + std::string(key) + "\" of " + classNameOf(*owner) + " does not take " +
                           (answer == Acceptance::wrongType ? kindOf(*value) : refusedValue(*value, attribute)));
    }
}
