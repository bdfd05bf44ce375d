#include "platform/interface/InterfaceInstance.h"

#include "platform/interface/Connections.h"
#include "platform/interface/ConstraintReader.h"
#include "platform/interface/ElementCoder.h"
#include "platform/interface/ObjectClasses.h"
#include "platform/interface/RuntimeAttributes.h"
#include "platform/runtime/SourceLocation.h"
#include "platform/uikit/table/UITableViewCell.h"
#include "platform/uikit/view/UIView.h"

std::shared_ptr<NSObject> InterfaceInstance::make(const InterfaceElement& element) {
    std::shared_ptr<NSObject> object = makeAlone(element);
    if (const auto view = std::dynamic_pointer_cast<UIView>(object)) {
        makeInside(element, view);
    }
    return object;
}

std::shared_ptr<NSObject> InterfaceInstance::makeAlone(const InterfaceElement& element) {
    const ObjectClass* objectClass = classToMake(element, m_report);
    if (objectClass == nullptr) {
        // Connections to it would only repeat the complaint.
        m_objects.put(element, {}, m_report);
        return nullptr;
    }
    std::shared_ptr<NSObject> object = objectClass->factory(ElementCoder(element, m_document, m_report));
    keep(element, object);
    return object;
}

std::shared_ptr<UIView> InterfaceInstance::makeView(const InterfaceElement& element) {
    const std::shared_ptr<NSObject> object = make(element);
    auto view = std::dynamic_pointer_cast<UIView>(object);
    if (object && !view) {
        m_report.error(element, classNameOf(*object) + " is no view");
    }
    return view;
}

void InterfaceInstance::keep(const InterfaceElement& element, const std::shared_ptr<NSObject>& object) {
    setSourceLocation(*object, {m_document.sharedPath(), element.place, element.describe()});
    m_objects.put(element, {object, LayoutGuide::view}, m_report);
    m_made.push_back({&element, object, false});
}

void InterfaceInstance::adopt(const InterfaceElement& element, const std::shared_ptr<NSObject>& object) {
    m_objects.put(element, {object, LayoutGuide::view}, m_report);
    if (object) {
        m_made.push_back({&element, object, true});
    }
}

void InterfaceInstance::makeInside(const InterfaceElement& element, const std::shared_ptr<UIView>& view) {
    for (const InterfaceElement& child : element.children) {
        if (child.name == "subviews") {
            addSubviews(child, *view);
        } else if (child.name == "tableViewCellContentView") {
            fillContentView(child, *view);
        } else if (child.name == "view") {
            m_report.error(child, "a view under the key \"" + std::string(child.value("key")) + "\" has no place in " +
                                      classNameOf(*view));
        } else if (child.name == "viewLayoutGuide") {
            putGuide(child, view);
        } else if (child.name == "prototypes" || child.name == "sections") {
            m_report.warning(child, "cells inside a table are left out; they come from nibs here");
        } else if (child.name == "variation") {
            m_report.warning(child, "variations for size classes are ignored");
        }
    }
}

void InterfaceInstance::addSubviews(const InterfaceElement& subviews, UIView& view) {
    for (const InterfaceElement& child : subviews.children) {
        if (const std::shared_ptr<UIView> made = makeView(child)) {
            view.addSubview(made);
        }
    }
}

void InterfaceInstance::fillContentView(const InterfaceElement& element, UIView& owner) {
    const auto* cell = dynamic_cast<const UITableViewCell*>(&owner);
    if (cell == nullptr) {
        m_report.error(element, classNameOf(owner) + " is no table cell");
        return;
    }
    const std::shared_ptr<UIView> content = cell->contentView();
    const ElementCoder coder(element, m_document, m_report);
    if (const auto color = coder.objectOf<UIColor>("backgroundColor", "a colour")) {
        content->setBackgroundColor(*color);
    }
    keep(element, content);
    makeInside(element, content);
}

void InterfaceInstance::putGuide(const InterfaceElement& element, const std::shared_ptr<UIView>& view) {
    const std::string_view key = element.value("key");
    if (key == "safeArea") {
        m_objects.put(element, {view, LayoutGuide::safeArea}, m_report);
    } else if (key == "frameLayoutGuide") {
        m_objects.put(element, {view, LayoutGuide::view}, m_report);
    } else {
        m_report.error(element, "the guide \"" + std::string(key) + "\" is not supported");
        m_objects.put(element, {}, m_report);
    }
}

void InterfaceInstance::connect() {
    for (std::size_t i = 0; i < m_made.size(); ++i) { // constraints join the list
        makeConstraints(Made(m_made[i]));
    }
    for (const Made& made : m_made) {
        connectOutlets(*made.element, *made.object, m_objects, m_report);
    }
    for (const Made& made : m_made) {
        connectActions(*made.element, *made.object, m_objects, m_report);
    }
    for (const Made& made : m_made) {
        if (!made.adopted) {
            setRuntimeAttributes(*made.element, made.object, m_document, m_report);
        }
    }
}

void InterfaceInstance::makeConstraints(const Made& owner) {
    const auto view = std::dynamic_pointer_cast<UIView>(owner.object);
    const InterfaceElement* constraints = owner.element->child("constraints");
    if (!view || constraints == nullptr) {
        return;
    }
    for (const InterfaceElement& element : constraints->children) {
        const bool leftOut = element.value("placeholder") == "YES";
        const auto constraint = leftOut ? nullptr : readConstraint(element, view, m_objects, m_document, m_report);
        if (constraint) {
            keep(element, constraint);
        } else {
            m_objects.put(element, {}, m_report);
        }
    }
}

void InterfaceInstance::awaken() {
    for (const Made& made : m_made) {
        if (!made.adopted) {
            made.object->awakeFromNib();
        }
    }
}
