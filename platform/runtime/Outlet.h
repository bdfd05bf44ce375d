#pragma once

#include "platform/runtime/SourceLocation.h"

#include <memory>
#include <string>

/// A weak, optional reference that an interface file connects by name; a member of the object that has the outlet. It
/// is read as always present: following one that is not connected (or whose object is gone) stops the program with the
/// outlet's name and its owner's place in the interface file.
template <class T>
class Outlet {
public:
    Outlet(const NSObject* owner, const char* name) : m_owner(owner), m_name(name) {}

    Outlet& operator=(const std::shared_ptr<T>& object) {
        m_object = object;
        return *this;
    }

    /// Null when not connected.
    [[nodiscard]] std::shared_ptr<T> get() const { return m_object.lock(); }
    /// Identity; false when not connected.
    [[nodiscard]] bool is(const T& object) const { return get().get() == &object; }
    [[nodiscard]] T& operator*() const { return *require(); }
    [[nodiscard]] T* operator->() const { return require(); }

private:
    /// The view tree owns the object, so the plain pointer outlives the caller's expression.
    T* require() const {
        T* object = m_object.lock().get();
        if (object == nullptr) {
            fatalErrorAt(*m_owner, std::string("the outlet ") + m_name + " is not connected");
        }
        return object;
    }

    const NSObject* m_owner;
    const char* m_name;
    std::weak_ptr<T> m_object;
};
