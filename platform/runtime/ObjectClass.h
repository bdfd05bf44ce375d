#pragma once

#include "platform/foundation/Geometry.h"
#include "platform/runtime/NSCoder.h"
#include "platform/runtime/NSObject.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <typeindex>
#include <variant>
#include <vector>

/// A value on its way to a key-set property. Objects (colours, images) travel as NSObject; a null object is "nil".
using Value = std::variant<bool, double, std::string, CGPoint, CGSize, CGRect, std::shared_ptr<NSObject>>;

/// "a number", "a boolean" …, for messages about a value of the wrong type.
[[nodiscard]] std::string kindOf(const Value& value);

/// Whether an object takes what an interface file gives it by name.
enum class Acceptance { accepted, wrongType, wrongValue };

/// What one class is called and what can be reached in it by name: its outlets, key-set properties and actions.
/// Filled once at start by ClassBuilder; owned by the class registry.
class ObjectClass {
public:
    using Factory = std::function<std::shared_ptr<NSObject>(const NSCoder&)>;
    using OutletSetter = std::function<Acceptance(NSObject&, const std::shared_ptr<NSObject>&)>;
    using PropertySetter = std::function<Acceptance(NSObject&, const Value&)>;
    using ObjectGetter = std::function<std::shared_ptr<NSObject>(NSObject&)>;
    /// The second argument is the sender; null for actions that take none.
    using Action = std::function<void(NSObject&, NSObject*)>;

    /// Whether an object is of the class or of one derived from it.
    using Check = bool (*)(const NSObject&);

    ObjectClass(std::string className, const ObjectClass* parent, std::type_index objectType, Check check)
        : name(std::move(className)), superclass(parent), type(objectType), isClassOf(check) {}

    /// How many superclasses it has.
    [[nodiscard]] int depth() const { return superclass == nullptr ? 0 : superclass->depth() + 1; }
    /// Looks through this class and its superclasses; null when there is none of that name.
    [[nodiscard]] const OutletSetter* outlet(std::string_view key) const;
    [[nodiscard]] const PropertySetter* property(std::string_view key) const;
    [[nodiscard]] const ObjectGetter* object(std::string_view key) const;
    [[nodiscard]] const Action* action(std::string_view selector) const;
    /// Names of everything of a kind, superclasses included, sorted: for messages about unknown names.
    [[nodiscard]] std::vector<std::string> outletNames() const;
    [[nodiscard]] std::vector<std::string> propertyNames() const;
    [[nodiscard]] std::vector<std::string> actionNames() const;

    std::string name;
    const ObjectClass* superclass;
    std::type_index type;
    Check isClassOf;
    Factory factory; // empty for classes that interface files cannot make
    std::map<std::string, OutletSetter, std::less<>> outlets;
    std::map<std::string, PropertySetter, std::less<>> properties;
    std::map<std::string, ObjectGetter, std::less<>> objects;
    std::map<std::string, Action, std::less<>> actions;
};
