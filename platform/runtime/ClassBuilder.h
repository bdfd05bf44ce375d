#pragma once

#include "platform/runtime/ClassRegistry.h"
#include "platform/runtime/Outlet.h"

#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <type_traits>

/// Fills one class's table of names:
///     ClassBuilder<CategoriesVC>("CategoriesVC", "UIViewController")
///         .madeByCoder()
///         .outlet("tableView", &CategoriesVC::tableView)
///         .action("btnBackWithSender:", &CategoriesVC::btnBackWithSender);
/// Using it again for a class that exists adds to that class's table.
template <class T>
class ClassBuilder {
public:
    ClassBuilder(const char* name, const char* superclass)
        : m_class(ClassRegistry::shared().add(name, superclass, typeid(T), [](const NSObject& object) {
              return dynamic_cast<const T*>(&object) != nullptr;
          })) {}

    /// Interface files can make it, through its constructor from an NSCoder.
    ClassBuilder& madeByCoder() {
        m_class.factory = [](const NSCoder& coder) -> std::shared_ptr<NSObject> { return std::make_shared<T>(coder); };
        return *this;
    }

    /// The code needs it to be connected.
    template <class Owner, class Object>
    ClassBuilder& outlet(const char* name, Outlet<Object> Owner::*member) {
        m_class.neededOutlets.insert(name);
        return unusedOutlet(name, member);
    }
    /// One that the code never follows.
    template <class Owner, class Object>
    ClassBuilder& unusedOutlet(const char* name, Outlet<Object> Owner::*member) {
        m_class.outlets[name] = connector<Object>([member](T& self, auto object) { self.*member = object; });
        return *this;
    }
    /// An outlet whose assignment is observed, or one of a protocol's type such as `delegate`; the setter takes a
    /// shared or a weak pointer.
    template <class Owner, class Pointer>
    ClassBuilder& outlet(const char* name, void (Owner::*setter)(Pointer)) {
        using Object = typename std::remove_cvref_t<Pointer>::element_type;
        m_class.outlets[name] = connector<Object>([setter](T& self, auto object) { (self.*setter)(object); });
        return *this;
    }

    /// The code needs an outlet that is assigned through a setter to be connected.
    ClassBuilder& needs(const char* outlet) {
        m_class.neededOutlets.insert(outlet);
        return *this;
    }
    /// What the code asks the bundle for, by name.
    ClassBuilder& asksFor(AskedResource::Kind kind, std::initializer_list<const char*> names) {
        std::erase_if(m_class.askedResources, [kind](const AskedResource& asked) { return asked.kind == kind; });
        for (const char* name : names) {
            m_class.askedResources.push_back({kind, name});
        }
        return *this;
    }

    /// `setter` is a member or a free function taking T& first; its value argument decides the type that files must
    /// give. One that answers with an Acceptance refuses some values of the right type.
    template <class Setter>
    ClassBuilder& property(const char* key, Setter setter) {
        m_class.properties[key] = [setter](NSObject& self, const Value& value) {
            const auto typed = valueAs<decltype(argumentOf(setter))>(value);
            if (!typed) {
                return Acceptance::wrongType;
            }
            T& object = dynamic_cast<T&>(self);
            if constexpr (std::is_same_v<decltype(std::invoke(setter, object, *typed)), Acceptance>) {
                return std::invoke(setter, object, *typed);
            } else {
                std::invoke(setter, object, *typed);
                return Acceptance::accepted;
            }
        };
        return *this;
    }
    /// A part reached in a dotted key, such as `layer` in "layer.cornerRadius".
    template <class Owner, class Part>
    ClassBuilder& object(const char* key, std::shared_ptr<Part> (Owner::*getter)() const) {
        m_class.objects[key] = [getter](NSObject& self) -> std::shared_ptr<NSObject> {
            return (dynamic_cast<T&>(self).*getter)();
        };
        return *this;
    }

    /// `method` is a member or a free function taking T& first; it may go without the sender.
    template <class Method>
    ClassBuilder& action(const char* selector, Method method) {
        m_class.actions[selector] = [method](NSObject& self, NSObject* sender) {
            if constexpr (std::is_invocable_v<Method, T&, NSObject*>) {
                std::invoke(method, dynamic_cast<T&>(self), sender);
            } else {
                std::invoke(method, dynamic_cast<T&>(self));
            }
        };
        return *this;
    }

private:
    template <class Object, class Connect>
    static ObjectClass::OutletSetter connector(Connect connect) {
        return [connect](NSObject& self, const std::shared_ptr<NSObject>& object) {
            const auto typed = std::dynamic_pointer_cast<Object>(object);
            if (object && !typed) {
                return Acceptance::wrongType;
            }
            connect(dynamic_cast<T&>(self), typed);
            return Acceptance::accepted;
        };
    }

    // Only for the type of what a setter takes.
    template <class Answer, class Owner, class Argument>
    static std::remove_cvref_t<Argument> argumentOf(Answer (Owner::*setter)(Argument));
    template <class Answer, class Owner, class Argument>
    static std::remove_cvref_t<Argument> argumentOf(Answer (*setter)(Owner&, Argument));

    /// Absent when the value is of another type. Null is a value of every object type.
    template <class Plain>
    static std::optional<Plain> valueAs(const Value& value) {
        if constexpr (std::is_arithmetic_v<Plain> && !std::is_same_v<Plain, bool>) {
            const double* number = std::get_if<double>(&value);
            return number != nullptr ? std::optional(static_cast<Plain>(*number)) : std::nullopt;
        } else if constexpr (requires { typename Plain::element_type; }) {
            const auto* object = std::get_if<std::shared_ptr<NSObject>>(&value);
            const Plain typed =
                object != nullptr ? std::dynamic_pointer_cast<typename Plain::element_type>(*object) : nullptr;
            return typed || (object != nullptr && *object == nullptr) ? std::optional(typed) : std::nullopt;
        } else if constexpr (std::is_same_v<Plain, std::optional<std::string>>) { // files cannot write an absent text
            const std::string* text = std::get_if<std::string>(&value);
            return text != nullptr ? std::optional<Plain>(*text) : std::nullopt;
        } else {
            const Plain* typed = std::get_if<Plain>(&value);
            return typed != nullptr ? std::optional(*typed) : std::nullopt;
        }
    }

    ObjectClass& m_class;
};
