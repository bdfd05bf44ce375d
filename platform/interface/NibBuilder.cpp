#include "platform/interface/NibBuilder.h"

#include "platform/interface/ElementCoder.h"
#include "platform/runtime/ClassRegistry.h"
#include "platform/runtime/SourceLocation.h"
#include "platform/uikit/controllers/UIViewController.h"
#include "platform/uikit/table/UITableViewCell.h"
#include "platform/uikit/view/UIView.h"

#include <algorithm>
#include <array>

namespace {

constexpr WordTable<std::string_view, 11> standardClasses{{
    {"view", "UIView"},
    {"label", "UILabel"},
    {"imageView", "UIImageView"},
    {"button", "UIButton"},
    {"textField", "UITextField"},
    {"control", "UIControl"},
    {"scrollView", "UIScrollView"},
    {"tableView", "UITableView"},
    {"tableViewCell", "UITableViewCell"},
    {"viewController", "UIViewController"},
    {"navigationController", "UINavigationController"},
}};

} // namespace

NibBuilder::Objects NibBuilder::makeNib(const std::shared_ptr<NSObject>& owner) {
    Objects objects;
    for (const InterfaceElement& element : m_reader.document().root().child("objects")->children) {
        if (element.name == "placeholder") {
            const bool isOwner = element.value("placeholderIdentifier") == "IBFilesOwner";
            adopt(element, isOwner ? owner : nullptr);
        } else if (std::shared_ptr<NSObject> object = make(element)) {
            objects.push_back(std::move(object));
        }
    }
    tie();
    return objects;
}

std::shared_ptr<UIViewController> NibBuilder::makeController(const InterfaceScene& scene) {
    const std::shared_ptr<NSObject> object = make(*scene.controller);
    auto controller = std::dynamic_pointer_cast<UIViewController>(object);
    if (controller) {
        setAttributes({scene.controller, controller, false});
        controller->awakeFromNib();
    } else if (object) {
        m_reader.error(*scene.controller, classNameOf(*object) + " is no controller");
    }
    return controller;
}

std::shared_ptr<UIView> NibBuilder::makeView(const InterfaceScene& scene,
                                             const std::shared_ptr<UIViewController>& controller) {
    adopt(*scene.controller, controller);
    const InterfaceElement* element = scene.controller->keyed("view");
    std::shared_ptr<UIView> view = element != nullptr ? makeViewOf(*element) : nullptr;
    for (const InterfaceElement& guide : scene.controller->inside("layoutGuides")) {
        m_reader.error(guide, "guides of a controller are not supported; those of its view's safe area are");
        name(guide, {});
    }
    for (const InterfaceElement& object : scene.objects->children) {
        if (object.name == "placeholder" || object.name == "exit") {
            adopt(object, nullptr);
        } else if (&object != scene.controller) {
            static_cast<void>(make(object));
        }
    }
    tie();
    return view ? view : std::make_shared<UIView>();
}

std::shared_ptr<NSObject> NibBuilder::make(const InterfaceElement& element) {
    std::shared_ptr<NSObject> object = makeAlone(element);
    if (const auto view = std::dynamic_pointer_cast<UIView>(object)) {
        makeInside(element, view);
    }
    return object;
}

std::shared_ptr<NSObject> NibBuilder::makeAlone(const InterfaceElement& element) {
    const ObjectClass* objectClass = classOf(element);
    if (objectClass == nullptr) {
        nameUnmade(element);
        return nullptr;
    }
    std::shared_ptr<NSObject> object = objectClass->factory(ElementCoder(element, m_reader));
    tellUnread(element, *objectClass);
    keep(element, object);
    return object;
}

/// Values that the class did not ask for; nil changes nothing, and some are for the editor.
void NibBuilder::tellUnread(const InterfaceElement& element, const ObjectClass& objectClass) {
    static constexpr std::array<std::string_view, 11> values{
        "color", "fontDescription",  "size",         "inset", "edgeInsets", "state", "string", "mutableString",
        "rect",  "autoresizingMask", "accessibility"};
    for (const InterfaceElement& child : element.children) {
        const std::string key(child.value("key"));
        const bool isValue = std::find(values.begin(), values.end(), child.name) != values.end();
        if (key.empty() || key == "userComments" || key == "freeformSize" || !isValue) {
            continue;
        }
        if (m_reader.wasRead(child)) {
            tellUnread(child, objectClass);
        } else {
            m_reader.warning(child, "the " + std::string(child.name == "state" ? "state " : "") + key + " of a " +
                                        objectClass.name + " has no effect here");
        }
    }
}

std::shared_ptr<UIView> NibBuilder::makeViewOf(const InterfaceElement& element) {
    const std::shared_ptr<NSObject> object = make(element);
    auto view = std::dynamic_pointer_cast<UIView>(object);
    if (object && !view) {
        m_reader.error(element, classNameOf(*object) + " is no view");
    }
    return view;
}

/// The class that an element asks for: its custom class, else the standard one of its kind. Null after an error.
const ObjectClass* NibBuilder::classOf(const InterfaceElement& element) {
    const std::string_view* standard = meaningOf(element.name, standardClasses);
    if (standard == nullptr) {
        m_reader.error(element,
                       "there are no objects of this kind here" + suggestionFrom(element.name, standardClasses));
        return nullptr;
    }
    const std::string* custom = element.attribute("customClass");
    const std::string_view className = custom != nullptr ? std::string_view(*custom) : *standard;
    const ObjectClass* found = ClassRegistry::shared().find(className);
    if (found == nullptr) {
        m_reader.error(element, "there is no class \"" + std::string(className) + "\"" +
                                    suggestion(className, ClassRegistry::shared().names()));
    } else if (!found->factory) {
        m_reader.error(element, "interface files cannot make objects of the class " + found->name);
        return nullptr;
    }
    return found;
}

void NibBuilder::makeInside(const InterfaceElement& element, const std::shared_ptr<UIView>& view) {
    for (const InterfaceElement& child : element.children) {
        if (child.name == "subviews") {
            addSubviews(child, *view);
        } else if (child.name == "tableViewCellContentView") {
            fillContentView(child, *view);
        } else if (child.name == "view") {
            m_reader.error(child, "a view under the key \"" + std::string(child.value("key")) + "\" has no place in " +
                                      classNameOf(*view));
        } else if (child.name == "viewLayoutGuide") {
            nameGuide(child, view);
        } else if (child.name == "prototypes" || child.name == "sections") {
            m_reader.warning(child, "cells inside a table are left out; they come from nibs here");
        } else if (child.name == "variation") {
            m_reader.warning(child, "variations for size classes are ignored");
        }
    }
}

void NibBuilder::addSubviews(const InterfaceElement& subviews, UIView& view) {
    for (const InterfaceElement& child : subviews.children) {
        if (const std::shared_ptr<UIView> made = makeViewOf(child)) {
            view.addSubview(made);
        }
    }
}

void NibBuilder::fillContentView(const InterfaceElement& element, UIView& owner) {
    const auto* cell = dynamic_cast<const UITableViewCell*>(&owner);
    if (cell == nullptr) {
        m_reader.error(element, classNameOf(owner) + " is no table cell");
        return;
    }
    const std::shared_ptr<UIView> content = cell->contentView();
    if (const auto color = ElementCoder(element, m_reader).objectOf<UIColor>("backgroundColor", "a colour")) {
        content->setBackgroundColor(*color);
    }
    keep(element, content);
    makeInside(element, content);
}

void NibBuilder::nameGuide(const InterfaceElement& element, const std::shared_ptr<UIView>& view) {
    const std::string_view key = element.value("key");
    if (key == "safeArea") {
        name(element, {view, LayoutGuide::safeArea});
    } else if (key == "frameLayoutGuide") {
        name(element, {view, LayoutGuide::view});
    } else {
        m_reader.error(element, "the guide \"" + std::string(key) + "\" is not supported");
        name(element, {});
    }
}

void NibBuilder::keep(const InterfaceElement& element, const std::shared_ptr<NSObject>& object) {
    setSourceLocation(*object, {m_reader.document().sharedPath(), element.place, element.description});
    name(element, {object, LayoutGuide::view});
    m_made.push_back({&element, object, false});
}

void NibBuilder::adopt(const InterfaceElement& element, const std::shared_ptr<NSObject>& object) {
    name(element, {object, LayoutGuide::view});
    if (object) {
        m_made.push_back({&element, object, true});
    }
}

/// What refers to an object that cannot be made, or to anything inside it, would only repeat the complaint.
void NibBuilder::nameUnmade(const InterfaceElement& element) {
    name(element, {});
    for (const InterfaceElement& child : element.children) {
        nameUnmade(child);
    }
}

void NibBuilder::name(const InterfaceElement& element, Named named) {
    const std::string_view id = element.id();
    if (!id.empty()) {
        m_named.emplace(id, std::move(named)); // of two objects with an id the first one counts
    }
}

const NibBuilder::Named* NibBuilder::named(const InterfaceElement& element, std::string_view key) {
    const std::string_view id = element.value(key);
    const auto found = m_named.find(id);
    if (found == m_named.end()) {
        m_reader.error(element, std::string(key) + ": no object has the id \"" + std::string(id) + "\"");
        m_named.emplace(id, Named{}); // what else refers to it would only repeat the complaint
        return nullptr;
    }
    return &found->second;
}

void NibBuilder::tie() {
    for (std::size_t i = 0; i < m_made.size(); ++i) { // constraints join the list
        makeConstraints(Made(m_made[i]));
    }
    for (const Made& made : m_made) {
        connectOutlets(made);
    }
    for (const Made& made : m_made) {
        connectActions(made);
    }
    for (const Made& made : m_made) {
        setAttributes(made);
    }
    for (const Made& made : m_made) {
        if (!made.adopted) {
            made.object->awakeFromNib();
        }
    }
}
