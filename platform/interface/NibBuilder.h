#pragma once

#include "platform/interface/ElementReader.h"
#include "platform/uikit/view/NSLayoutConstraint.h"

#include <memory>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

class ObjectClass;
class UIView;
class UIViewController;

/// Makes the objects of a nib or scene: first all objects with their subviews, then what ties them together, and
/// awakens them. One for each making, and used for it once; refers to the document. Everything that is wrong becomes a
/// finding, and the rest is still tried. Main thread only.
class NibBuilder {
public:
    using Objects = std::vector<std::shared_ptr<NSObject>>;

    explicit NibBuilder(const InterfaceDocument& document) : m_reader(document) {}

    /// New top-level objects of a nib in file order, connected and awakened. `owner` may be null: connections to and
    /// from the file's owner are then left out.
    [[nodiscard]] Objects makeNib(const std::shared_ptr<NSObject>& owner);
    /// A new controller of a scene, awakened, without its view; null after an error.
    [[nodiscard]] std::shared_ptr<UIViewController> makeController(const InterfaceScene& scene);
    /// A new view tree for a controller of the scene, connected and awakened; never null.
    [[nodiscard]] std::shared_ptr<UIView> makeView(const InterfaceScene& scene,
                                                   const std::shared_ptr<UIViewController>& controller);
    [[nodiscard]] const Findings& findings() const { return m_reader.findings(); }

private:
    /// What an id stands for.
    struct Named {
        std::shared_ptr<NSObject> object; // null for what is left out on purpose, such as an absent owner
        LayoutGuide guide = LayoutGuide::view;
    };
    struct Made {
        const InterfaceElement* element;
        std::shared_ptr<NSObject> object;
        bool adopted; // it was there before the file
    };

    // Objects and the views inside them.
    std::shared_ptr<NSObject> make(const InterfaceElement& element);
    std::shared_ptr<NSObject> makeAlone(const InterfaceElement& element);
    std::shared_ptr<UIView> makeViewOf(const InterfaceElement& element);
    const ObjectClass* classOf(const InterfaceElement& element);
    void makeInside(const InterfaceElement& element, const std::shared_ptr<UIView>& view);
    void addSubviews(const InterfaceElement& subviews, UIView& view);
    void fillContentView(const InterfaceElement& element, UIView& owner);
    void nameGuide(const InterfaceElement& element, const std::shared_ptr<UIView>& view);

    // Names. The first object of an id keeps it; a second one is warned of.
    void keep(const InterfaceElement& element, const std::shared_ptr<NSObject>& object);
    /// Lets an object that exists stand for an element; a null one is left out quietly.
    void adopt(const InterfaceElement& element, const std::shared_ptr<NSObject>& object);
    void tellUnread(const InterfaceElement& element, const ObjectClass& objectClass);
    void nameUnmade(const InterfaceElement& element);
    void name(const InterfaceElement& element, Named named);
    /// What the id in an attribute stands for; null after an error.
    const Named* named(const InterfaceElement& element, std::string_view key);

    // Ties.
    void tie();
    void makeConstraints(const Made& owner);
    std::shared_ptr<NSLayoutConstraint> makeConstraint(const InterfaceElement& element,
                                                       const std::shared_ptr<UIView>& owner);
    std::optional<LayoutEnd> constraintEnd(const InterfaceElement& element, const std::shared_ptr<UIView>& owner,
                                           std::string_view itemKey, std::string_view attributeKey);
    void connectOutlets(const Made& source);
    void connectOutlet(const InterfaceElement& outlet, NSObject& source);
    void connectActions(const Made& source);
    void connectAction(const InterfaceElement& action, NSObject& source);
    void setAttributes(const Made& made);
    void setAttribute(const InterfaceElement& attribute, const std::shared_ptr<NSObject>& object);

    ElementReader m_reader;
    std::unordered_map<std::string_view, Named> m_named; // by id
    std::vector<Made> m_made;
};
