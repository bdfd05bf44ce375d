#pragma once

#include "platform/runtime/NSObject.h"

#include <map>

/// How an association holds its value. The numbers are the object runtime's own.
enum objc_AssociationPolicy : unsigned {
    OBJC_ASSOCIATION_ASSIGN = 0,
    OBJC_ASSOCIATION_RETAIN_NONATOMIC = 1,
    OBJC_ASSOCIATION_RETAIN = 0x301,
};

/// Values attached to an object from outside, by the address of a key. Owned by the object.
class AssociatedObjects {
public:
    void set(const void* key, const std::shared_ptr<NSObject>& value, objc_AssociationPolicy policy);
    [[nodiscard]] std::shared_ptr<NSObject> get(const void* key) const;

private:
    struct Association {
        std::shared_ptr<NSObject> retained; // empty under OBJC_ASSOCIATION_ASSIGN
        std::weak_ptr<NSObject> assigned;
    };
    std::map<const void*, Association> m_values;
};

/// Stores `value` on `object` under the address `key`; replaces an earlier value, and a null value removes it.
void objc_setAssociatedObject(NSObject& object, const void* key, const std::shared_ptr<NSObject>& value,
                              objc_AssociationPolicy policy);
/// Null when nothing is stored under `key`.
[[nodiscard]] std::shared_ptr<NSObject> objc_getAssociatedObject(const NSObject& object, const void* key);
