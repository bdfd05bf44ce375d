#include "platform/runtime/ObjectClass.h"

#include <array>
#include <set>

namespace {

template <class Entry>
using Table = std::map<std::string, Entry, std::less<>> ObjectClass::*;

template <class Entry>
const Entry* lookUp(const ObjectClass& start, Table<Entry> table, std::string_view key) {
    for (const ObjectClass* level = &start; level != nullptr; level = level->superclass) {
        const auto found = (level->*table).find(key);
        if (found != (level->*table).end()) {
            return &found->second;
        }
    }
    return nullptr;
}

template <class Entry>
std::vector<std::string> namesIn(const ObjectClass& start, Table<Entry> table) {
    std::set<std::string> names;
    for (const ObjectClass* level = &start; level != nullptr; level = level->superclass) {
        for (const auto& [name, entry] : level->*table) {
            names.insert(name);
        }
    }
    return {names.begin(), names.end()};
}

} // namespace

const ObjectClass::OutletSetter* ObjectClass::outlet(std::string_view key) const {
    return lookUp(*this, &ObjectClass::outlets, key);
}

const ObjectClass::PropertySetter* ObjectClass::property(std::string_view key) const {
    return lookUp(*this, &ObjectClass::properties, key);
}

const ObjectClass::ObjectGetter* ObjectClass::object(std::string_view key) const {
    return lookUp(*this, &ObjectClass::objects, key);
}

const ObjectClass::Action* ObjectClass::action(std::string_view selector) const {
    return lookUp(*this, &ObjectClass::actions, selector);
}

std::vector<std::string> ObjectClass::outletNames() const {
    return namesIn(*this, &ObjectClass::outlets);
}

std::vector<std::string> ObjectClass::propertyNames() const {
    return namesIn(*this, &ObjectClass::properties);
}

std::vector<std::string> ObjectClass::actionNames() const {
    return namesIn(*this, &ObjectClass::actions);
}

std::string kindOf(const Value& value) {
    static constexpr std::array<const char*, std::variant_size_v<Value>> names = {
        "a boolean", "a number", "a string", "a point", "a size", "a rect", "an object"};
    return names[value.index()];
}
