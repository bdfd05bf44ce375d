#include "platform/runtime/NSObject.h"

NSObject::NSObject() = default;
NSObject::~NSObject() = default;

void objc_setAssociatedObject(NSObject& object, const void* key, std::shared_ptr<NSObject> value,
                              objc_AssociationPolicy /*policy*/) {
    if (!object.m_associations) {
        object.m_associations = std::make_unique<NSObject::Associations>();
    }
    if (value) {
        (*object.m_associations)[key].swap(value);
    } else if (const auto node = object.m_associations->extract(key)) {
        value = node.mapped();
    }
} // the earlier value dies last: its destructor may come back here

std::shared_ptr<NSObject> objc_getAssociatedObject(const NSObject& object, const void* key) {
    if (!object.m_associations) {
        return nullptr;
    }
    const auto found = object.m_associations->find(key);
    return found == object.m_associations->end() ? nullptr : found->second;
}
