#pragma once

#include "platform/runtime/ObjectClass.h"

#include <string>
#include <string_view>
#include <typeindex>

/// All classes that can be named by text. Filled once per process, on the main thread, before the first interface
/// file is read; read-only afterwards. Main thread only.
class ClassRegistry {
public:
    [[nodiscard]] static ClassRegistry& shared();

    /// Adds a class, or returns the one that is already there (registering twice is harmless).
    ObjectClass& add(std::string name, std::string_view superclassName, std::type_index type,
                     ObjectClass::Check isClassOf);
    /// Null when no class has that name.
    [[nodiscard]] ObjectClass* find(std::string_view name);
    /// The class of an object; for an unregistered C++ type its nearest base that is registered, at last NSObject.
    [[nodiscard]] const ObjectClass& classOf(const NSObject& object) const;
    /// The registered name of a C++ type; "NSObject" when it has none.
    [[nodiscard]] std::string nameOf(std::type_index type) const;
    [[nodiscard]] std::vector<std::string> names() const;

private:
    ClassRegistry();

    std::map<std::string, std::unique_ptr<ObjectClass>, std::less<>> m_byName;
    std::map<std::type_index, const ObjectClass*> m_byType;
};

/// The registered name of the object's class or of its nearest base that has one, for trees and messages.
[[nodiscard]] std::string classNameOf(const NSObject& object);
/// Runs the action `selector` on the object; false when its class has no such action.
bool performSelector(NSObject& object, std::string_view selector, NSObject* sender);
[[nodiscard]] bool respondsToSelector(const NSObject& object, std::string_view selector);
/// Whether the object's class, or a base of it beside NSObject, is registered: an object without one responds to no
/// selector, whatever its C++ class implements.
[[nodiscard]] bool canBeAskedForSelectors(const NSObject& object);
