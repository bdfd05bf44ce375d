#include "platform/interface/Connections.h"

#include "platform/interface/WordTable.h"
#include "platform/runtime/ClassRegistry.h"
#include "platform/uikit/controls/UIControl.h"

namespace {

constexpr WordTable<unsigned, 15> controlEvents{{
    {"touchDown", UIControlEventTouchDown},
    {"touchDownRepeat", 1u << 1},
    {"touchDragInside", 1u << 2},
    {"touchDragOutside", 1u << 3},
    {"touchDragEnter", 1u << 4},
    {"touchDragExit", 1u << 5},
    {"touchUpInside", UIControlEventTouchUpInside},
    {"touchUpOutside", UIControlEventTouchUpOutside},
    {"touchCancel", UIControlEventTouchCancel},
    {"valueChanged", UIControlEventValueChanged},
    {"primaryActionTriggered", 1u << 13},
    {"editingDidBegin", 1u << 16},
    {"editingChanged", UIControlEventEditingChanged},
    {"editingDidEnd", 1u << 18},
    {"editingDidEndOnExit", 1u << 19},
}};

std::string quoted(std::string_view text) {
    return std::string("\"").append(text).append("\"");
}

void connectOutlet(const InterfaceElement& outlet, NSObject& source, const InterfaceObjects& objects,
                   InterfaceReport& report) {
    const std::string_view name = outlet.value("property");
    const InterfaceObjects::Entry* destination = objects.require(outlet, "destination", report);
    const ObjectClass& sourceClass = ClassRegistry::shared().classOf(source);
    const ObjectClass::OutletSetter* setter = sourceClass.outlet(name);
    if (setter == nullptr) {
        report.error(outlet, classNameOf(source) + " has no outlet " + quoted(name) +
                                 suggestion(name, sourceClass.outletNames()));
    } else if (destination != nullptr && destination->object &&
               (*setter)(source, destination->object) == Acceptance::wrongType) {
        report.error(outlet, "the outlet " + quoted(name) + " of " + classNameOf(source) + " cannot hold a " +
                                 classNameOf(*destination->object));
    }
}

unsigned eventOf(const InterfaceElement& action, InterfaceReport& report) {
    const std::string* word = action.attribute("eventType");
    if (word == nullptr) {
        return UIControlEventTouchUpInside;
    }
    if (const unsigned* event = meaningOf(*word, controlEvents)) {
        return *event;
    }
    report.error(action, "eventType is " + quoted(*word) + ", the name of a control's event is expected" +
                             suggestionFrom(*word, controlEvents));
    return 0;
}

void connectAction(const InterfaceElement& action, NSObject& source, const InterfaceObjects& objects,
                   InterfaceReport& report) {
    const std::string selector(action.value("selector"));
    const unsigned event = eventOf(action, report);
    auto* control = dynamic_cast<UIControl*>(&source);
    if (control == nullptr) {
        report.error(action, classNameOf(source) + " is no control and sends no actions");
    }
    const InterfaceObjects::Entry* destination = objects.require(action, "destination", report);
    if (destination == nullptr || !destination->object) {
        return;
    }
    NSObject& target = *destination->object;
    if (!respondsToSelector(target, selector)) {
        const ObjectClass& targetClass = ClassRegistry::shared().classOf(target);
        report.error(action, classNameOf(target) + " has no action " + quoted(selector) +
                                 suggestion(selector, targetClass.actionNames()));
    } else if (control != nullptr && event != 0) {
        control->addTargetActionForControlEvents(destination->object, selector, event);
    }
}

} // namespace

void connectOutlets(const InterfaceElement& element, NSObject& object, const InterfaceObjects& objects,
                    InterfaceReport& report) {
    const InterfaceElement* connections = element.child("connections");
    if (connections == nullptr) {
        return;
    }
    for (const InterfaceElement& connection : connections->children) {
        if (connection.name == "outlet") {
            connectOutlet(connection, object, objects, report);
        } else if (connection.name == "outletCollection") {
            report.error(connection, "outlet collections are not supported");
        } else if (connection.name == "segue") {
            report.warning(connection, "segues are ignored");
        }
    }
}

void connectActions(const InterfaceElement& element, NSObject& object, const InterfaceObjects& objects,
                    InterfaceReport& report) {
    if (const InterfaceElement* connections = element.child("connections")) {
        for (const InterfaceElement& connection : connections->children) {
            if (connection.name == "action") {
                connectAction(connection, object, objects, report);
            }
        }
    }
}
