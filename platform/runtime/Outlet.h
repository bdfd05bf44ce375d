#pragma once

#include <memory>
#include <string>

class NSObject;

/// Stops the program: "outlet NAME is not connected".
[[noreturn]] void stopForUnconnectedOutlet(const char* name);

/// A weak, optional reference that an interface file connects by name. It is read as always present: following one
/// that is not connected (or whose object is gone) stops the program with the outlet's name.
template <class T>
class Outlet {
public:
    explicit Outlet(const char* name) : m_name(name) {}

    void connect(const std::shared_ptr<T>& object) { m_object = object; }
    Outlet& operator=(const std::shared_ptr<T>& object) {
        connect(object);
        return *this;
    }

    [[nodiscard]] const char* name() const { return m_name; }
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
            stopForUnconnectedOutlet(m_name);
        }
        return object;
    }

    const char* m_name;
    std::weak_ptr<T> m_object;
};
