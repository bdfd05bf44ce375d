#pragma once

#include <map>
#include <memory>

/// How an association holds its value. The number is the object runtime's own.
enum objc_AssociationPolicy : unsigned { OBJC_ASSOCIATION_RETAIN = 0x301 };

/// Base of everything that is shared by reference. Lives in std::shared_ptr; a std::weak_ptr is a weak reference. One
/// that does not (a local of a test, say) works as long as nobody asks for its strong reference. Main thread only,
/// unless a class says otherwise.
class NSObject : public std::enable_shared_from_this<NSObject> {
public:
    NSObject();
    virtual ~NSObject();
    NSObject(const NSObject&) = delete;
    NSObject& operator=(const NSObject&) = delete;

    /// Called once on every object of an interface file, after all outlets, actions and keys of the file are set.
    virtual void awakeFromNib() {}

private:
    friend void objc_setAssociatedObject(NSObject&, const void*, std::shared_ptr<NSObject>, objc_AssociationPolicy);
    friend std::shared_ptr<NSObject> objc_getAssociatedObject(const NSObject&, const void*);
    using Associations = std::map<const void*, std::shared_ptr<NSObject>>;

    std::unique_ptr<Associations> m_associations; // null until the first
};

/// The strong reference that owns `object`, typed. Null only while the object is being constructed or destroyed.
template <class T>
[[nodiscard]] std::shared_ptr<T> strong(T* object) {
    return object == nullptr ? nullptr : std::dynamic_pointer_cast<T>(object->weak_from_this().lock());
}

/// Stores `value` on `object` under the address `key`; replaces an earlier value, and a null value removes it.
void objc_setAssociatedObject(NSObject& object, const void* key, std::shared_ptr<NSObject> value,
                              objc_AssociationPolicy policy);
/// Null when nothing is stored under `key`.
[[nodiscard]] std::shared_ptr<NSObject> objc_getAssociatedObject(const NSObject& object, const void* key);
