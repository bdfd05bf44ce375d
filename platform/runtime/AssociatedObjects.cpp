#include "platform/runtime/AssociatedObjects.h"

AssociatedObjects& associatedObjectsOf(NSObject& object) {
    if (!object.m_associated) {
        object.m_associated = std::make_unique<AssociatedObjects>();
    }
    return *object.m_associated;
}

void AssociatedObjects::set(const void* key, const std::shared_ptr<NSObject>& value, objc_AssociationPolicy policy) {
    // The earlier value dies last: its destructor may come back here.
    Association earlier;
    if (const auto found = m_values.find(key); found != m_values.end()) {
        earlier = std::move(found->second);
        m_values.erase(found);
    }
    if (value) {
        const bool retains = policy != OBJC_ASSOCIATION_ASSIGN;
        m_values[key] = {retains ? value : nullptr, value};
    }
}

std::shared_ptr<NSObject> AssociatedObjects::get(const void* key) const {
    const auto found = m_values.find(key);
    return found == m_values.end() ? nullptr : found->second.assigned.lock();
}

void objc_setAssociatedObject(NSObject& object, const void* key, const std::shared_ptr<NSObject>& value,
                              objc_AssociationPolicy policy) {
    associatedObjectsOf(object).set(key, value, policy);
}

std::shared_ptr<NSObject> objc_getAssociatedObject(const NSObject& object, const void* key) {
    const AssociatedObjects* values = object.m_associated.get();
    return values == nullptr ? nullptr : values->get(key);
}
