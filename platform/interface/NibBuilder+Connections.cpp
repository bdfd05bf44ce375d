#include "platform/interface/NibBuilder.h"
#include "platform/runtime/ClassRegistry.h"
#include "platform/uikit/controls/UIControl.h"

namespace {

constexpr WordTable<unsigned, 15> controlEvents{{
    {"touchUpInside", UIControlEventTouchUpInside},
    {"touchDown", UIControlEventTouchDown},
    {"touchDownRepeat", 1u << 1},
    {"touchDragInside", 1u << 2},
    {"touchDragOutside", 1u << 3},
    {"touchDragEnter", 1u << 4},
    {"touchDragExit", 1u << 5},
    {"touchUpOutside", UIControlEventTouchUpOutside},
    {"touchCancel", UIControlEventTouchCancel},
    {"valueChanged", UIControlEventValueChanged},
    {"primaryActionTriggered", 1u << 13},
    {"editingDidBegin", 1u << 16},
    {"editingChanged", UIControlEventEditingChanged},
    {"editingDidEnd", 1u << 18},
    {"editingDidEndOnExit", 1u << 19},
}};

std::string inQuotes(std::string_view text) {
    return std::string("\"").append(text).append("\"");
}

} // namespace

/// An outlet that the class of the source lacks, or whose object is of another class, is an error.
void NibBuilder::connectOutlets(const Made& source) {
    for (const InterfaceElement& connection : source.element->inside("connections")) {
        if (connection.name == "outlet") {
            connectOutlet(connection, *source.object);
        } else if (connection.name == "outletCollection") {
            m_reader.error(connection, "outlet collections are not supported");
        } else if (connection.name == "segue") {
            m_reader.warning(connection, "segues are ignored");
        }
    }
}

void NibBuilder::connectOutlet(const InterfaceElement& outlet, NSObject& source) {
    const std::string_view property = outlet.value("property");
    const Named* destination = named(outlet, "destination");
    const ObjectClass& sourceClass = ClassRegistry::shared().classOf(source);
    const ObjectClass::OutletSetter* setter = sourceClass.outlets.find(property);
    if (setter == nullptr) {
        m_reader.error(outlet, classNameOf(source) + " has no outlet " + inQuotes(property) +
                                   suggestion(property, sourceClass.outlets.names()));
    } else if (destination != nullptr && destination->object &&
               (*setter)(source, destination->object) == Acceptance::wrongType) {
        m_reader.error(outlet, "the outlet " + inQuotes(property) + " of " + classNameOf(source) + " cannot hold a " +
                                   classNameOf(*destination->object));
    }
}

void NibBuilder::connectActions(const Made& source) {
    for (const InterfaceElement& connection : source.element->inside("connections")) {
        if (connection.name == "action") {
            connectAction(connection, *source.object);
        }
    }
}

/// An action that the class of the receiver lacks is an error.
void NibBuilder::connectAction(const InterfaceElement& action, NSObject& source) {
    const std::string selector(action.value("selector"));
    const unsigned* event = m_reader.wordOrFirst(action, "eventType", controlEvents, "the name of a control's event");
    auto* control = dynamic_cast<UIControl*>(&source);
    if (control == nullptr) {
        m_reader.error(action, classNameOf(source) + " is no control and sends no actions");
    }
    const Named* destination = named(action, "destination");
    if (destination == nullptr || !destination->object) {
        return;
    }
    NSObject& target = *destination->object;
    if (!respondsToSelector(target, selector)) {
        const ObjectClass& targetClass = ClassRegistry::shared().classOf(target);
        m_reader.error(action, classNameOf(target) + " has no action " + inQuotes(selector) +
                                   suggestion(selector, targetClass.actions.names()));
    } else if (control != nullptr && event != nullptr) {
        control->addTargetActionForControlEvents(destination->object, selector, *event);
    }
}
