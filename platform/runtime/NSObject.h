#pragma once

#include <memory>

class AssociatedObjects;

/// Base of everything that is shared by reference. Lives in std::shared_ptr; a std::weak_ptr is a weak reference.
/// Objects are made by std::make_shared, never on the stack. Main thread only, unless a class says otherwise.
class NSObject : public std::enable_shared_from_this<NSObject> {
public:
    NSObject();
    virtual ~NSObject();
    NSObject(const NSObject&) = delete;
    NSObject& operator=(const NSObject&) = delete;

    /// Called once on every object of an interface file, after all outlets, actions and keys of the file are set.
    virtual void awakeFromNib() {}

private:
    friend AssociatedObjects& associatedObjectsOf(NSObject& object);
    friend std::shared_ptr<NSObject> objc_getAssociatedObject(const NSObject& object, const void* key);
    std::unique_ptr<AssociatedObjects> m_associated;
};

/// The strong reference that owns `object`, typed. Null only while the object is being constructed or destroyed.
template <class T>
[[nodiscard]] std::shared_ptr<T> strong(T* object) {
    return object == nullptr ? nullptr : std::dynamic_pointer_cast<T>(object->weak_from_this().lock());
}
