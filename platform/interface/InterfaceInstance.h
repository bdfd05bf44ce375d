#pragma once

#include "platform/interface/InterfaceDocument.h"
#include "platform/interface/InterfaceObjects.h"
#include "platform/interface/InterfaceReport.h"

#include <memory>
#include <vector>

class UITableViewCell;
class UIView;

/// One making of the objects of a nib or scene: first all objects with their subviews, then what ties them together.
/// Lives for the length of one instantiation; everything that is wrong goes to the report, and the rest is still tried.
class InterfaceInstance {
public:
    InterfaceInstance(const InterfaceDocument& document, InterfaceReport& report)
        : m_document(document), m_report(report) {}

    /// A new object with all that is inside; null after an error.
    std::shared_ptr<NSObject> make(const InterfaceElement& element);
    /// Lets an object that exists stand for an element and take part in its connections. A null one is left out
    /// quietly.
    void adopt(const InterfaceElement& element, const std::shared_ptr<NSObject>& object);

    /// Constraints, outlets, actions and then runtime attributes of everything made so far.
    void connect();
    /// awakeFromNib on every object that was made.
    void awaken();

private:
    struct Made {
        const InterfaceElement* element;
        std::shared_ptr<NSObject> object;
        bool adopted;
    };

    std::shared_ptr<NSObject> makeAlone(const InterfaceElement& element);
    std::shared_ptr<UIView> makeView(const InterfaceElement& element);
    void keep(const InterfaceElement& element, const std::shared_ptr<NSObject>& object);
    void makeInside(const InterfaceElement& element, const std::shared_ptr<UIView>& view);
    void addSubviews(const InterfaceElement& subviews, UIView& view);
    void fillContentView(const InterfaceElement& element, UIView& owner);
    void putGuide(const InterfaceElement& element, const std::shared_ptr<UIView>& view);
    void makeConstraints(const Made& owner);

    const InterfaceDocument& m_document;
    InterfaceReport& m_report;
    InterfaceObjects m_objects;
    std::vector<Made> m_made;
};
