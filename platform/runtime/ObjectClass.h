#pragma once

#include "platform/foundation/Geometry.h"
#include "platform/runtime/NSCoder.h"
#include "platform/runtime/NSObject.h"

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <typeindex>
#include <variant>
#include <vector>

/// A value on its way to a key-set property. Objects (colours, images) travel as NSObject; a null object is "nil".
using Value = std::variant<bool, double, std::string, CGPoint, CGSize, CGRect, std::shared_ptr<NSObject>>;

/// Whether an object takes what an interface file gives it by name.
enum class Acceptance { accepted, wrongType, wrongValue };

/// What a class has by name of one kind, its superclasses' included.
template <class Entry>
class NameTable {
public:
    explicit NameTable(const NameTable* inherited) : m_inherited(inherited) {}

    /// The class's own entry, made when there is none.
    [[nodiscard]] Entry& operator[](const char* name) { return m_own[name]; }
    /// Null when neither the class nor a superclass has one.
    [[nodiscard]] const Entry* find(std::string_view name) const {
        const auto own = m_own.find(name);
        if (own != m_own.end()) {
            return &own->second;
        }
        return m_inherited == nullptr ? nullptr : m_inherited->find(name);
    }
    /// Sorted, for messages about unknown names.
    [[nodiscard]] std::vector<std::string> names() const {
        std::set<std::string> names;
        for (const NameTable* table = this; table != nullptr; table = table->m_inherited) {
            for (const auto& [name, entry] : table->m_own) {
                names.insert(name);
            }
        }
        return {names.begin(), names.end()};
    }

private:
    const NameTable* m_inherited;
    std::map<std::string, Entry, std::less<>> m_own;
};

/// Something of the bundle that a class's code asks for by name.
struct AskedResource {
    enum class Kind { nib, scene, image, color, textColor };
    Kind kind;
    std::string name;
};

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
        : name(std::move(className)), superclass(parent), type(objectType), isClassOf(check),
          outlets(parent == nullptr ? nullptr : &parent->outlets),
          properties(parent == nullptr ? nullptr : &parent->properties),
          objects(parent == nullptr ? nullptr : &parent->objects),
          actions(parent == nullptr ? nullptr : &parent->actions) {}

    /// How many superclasses it has.
    [[nodiscard]] int depth() const { return superclass == nullptr ? 0 : superclass->depth() + 1; }

    std::string name;
    const ObjectClass* superclass;
    std::type_index type;
    Check isClassOf;
    Factory factory; // empty for classes that interface files cannot make
    NameTable<OutletSetter> outlets;
    NameTable<PropertySetter> properties;
    NameTable<ObjectGetter> objects;
    NameTable<Action> actions;
    // For checks of the bundle; nothing looks at them at run time.
    std::set<std::string> neededOutlets{}; // that the code follows without asking whether they are connected
    std::vector<AskedResource> askedResources{};
};
