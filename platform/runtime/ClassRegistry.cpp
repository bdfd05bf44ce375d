#include "platform/runtime/ClassRegistry.h"

#include "platform/foundation/FatalError.h"

ClassRegistry& ClassRegistry::shared() {
    static ClassRegistry registry;
    return registry;
}

ClassRegistry::ClassRegistry() {
    add("NSObject", "", typeid(NSObject), [](const NSObject&) { return true; });
}

ObjectClass& ClassRegistry::add(std::string name, std::string_view superclassName, std::type_index type,
                                ObjectClass::Check isClassOf) {
    if (ObjectClass* known = find(name)) {
        if (known->type != type) {
            fatalError("two classes are named " + name);
        }
        return *known;
    }
    const ObjectClass* superclass = find(superclassName);
    if (superclass == nullptr && !superclassName.empty()) {
        fatalError("class " + name + " is registered before its superclass " + std::string(superclassName));
    }
    auto made = std::make_unique<ObjectClass>(name, superclass, type, isClassOf);
    ObjectClass& added = *made;
    m_byType.emplace(type, &added);
    m_byName.emplace(std::move(name), std::move(made));
    return added;
}

ObjectClass* ClassRegistry::find(std::string_view name) {
    const auto found = m_byName.find(name);
    return found == m_byName.end() ? nullptr : found->second.get();
}

const ObjectClass& ClassRegistry::classOf(const NSObject& object) const {
    if (const auto found = m_byType.find(typeid(object)); found != m_byType.end()) {
        return *found->second;
    }
    const ObjectClass* nearest = m_byName.find("NSObject")->second.get();
    for (const auto& [name, known] : m_byName) {
        if (known->depth() > nearest->depth() && known->isClassOf(object)) {
            nearest = known.get();
        }
    }
    return *nearest;
}

std::string ClassRegistry::nameOf(std::type_index type) const {
    const auto found = m_byType.find(type);
    return found == m_byType.end() ? "NSObject" : found->second->name;
}

std::vector<std::string> ClassRegistry::names() const {
    std::vector<std::string> names;
    for (const auto& [name, objectClass] : m_byName) {
        names.push_back(name);
    }
    return names;
}

std::string classNameOf(const NSObject& object) {
    return ClassRegistry::shared().classOf(object).name;
}

bool performSelector(NSObject& object, std::string_view selector, NSObject* sender) {
    const ObjectClass::Action* action = ClassRegistry::shared().classOf(object).actions.find(selector);
    if (action == nullptr) {
        return false;
    }
    const std::shared_ptr<NSObject> kept = object.weak_from_this().lock(); // the action may drop the last reference
    (*action)(object, sender);
    return true;
}

bool respondsToSelector(const NSObject& object, std::string_view selector) {
    return ClassRegistry::shared().classOf(object).actions.find(selector) != nullptr;
}

bool canBeAskedForSelectors(const NSObject& object) {
    return ClassRegistry::shared().classOf(object).superclass != nullptr;
}
