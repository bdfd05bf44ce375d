#pragma once

#include "platform/runtime/ObjectClass.h"

#include <string>
#include <string_view>
#include <typeindex>

/// All classes that can be named by text. Filled once per process, on the main thread, before the first interface
/// file is read; read-only afterwards.
class ClassRegistry {
public:
    [[nodiscard]] static ClassRegistry& shared();

    /// Adds a class, or returns the one that is already there (registering twice is harmless).
    ObjectClass& add(std::string name, std::string_view superclassName, std::type_index type);
    /// Null when no class has that name.
    [[nodiscard]] ObjectClass* find(std::string_view name);
    /// The class of an object; for an unregistered C++ type null.
    [[nodiscard]] const ObjectClass* classOf(const NSObject& object) const;
    /// The registered name of a C++ type; "NSObject" when it has none.
    [[nodiscard]] std::string nameOf(std::type_index type) const;
    [[nodiscard]] std::vector<std::string> names() const;

private:
    ClassRegistry();

    std::map<std::string, std::unique_ptr<ObjectClass>, std::less<>> m_byName;
    std::map<std::type_index, ObjectClass*> m_byType;
};

/// The registered name of the object's class, for trees and messages; "NSObject" when it has none.
[[nodiscard]] std::string classNameOf(const NSObject& object);
/// Runs the action `selector` on the object; false when its class has no such action.
bool performSelector(NSObject& object, std::string_view selector, NSObject* sender);
[[nodiscard]] bool respondsToSelector(const NSObject& object, std::string_view selector);
