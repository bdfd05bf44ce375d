#include "simulator/live/TouchableParts.h"

#include "platform/uikit/controls/UITextField.h"
#include "platform/uikit/table/UITableViewCell.h"
#include "simulator/conversation/ViewTree.h"

namespace {

void appendTexts(const UIView& view, std::string& label) {
    for (const std::string& text : textsOf(view)) {
        label += (label.empty() ? "" : ", ") + text;
    }
    for (const std::shared_ptr<UIView>& subview : view.subviews()) {
        if (!subview->isHidden()) {
            appendTexts(*subview, label);
        }
    }
}

const char* roleOf(const UIView& view) {
    if (dynamic_cast<const UITextField*>(&view) != nullptr) {
        return "field";
    }
    if (dynamic_cast<const UIControl*>(&view) != nullptr) {
        return "button";
    }
    return dynamic_cast<const UITableViewCell*>(&view) != nullptr ? "row" : nullptr;
}

/// Walks down the extension's views; `visible` is the part of the window that ancestors leave to be seen.
class WindowWalk {
public:
    WindowWalk(UIWindow& window, std::vector<TouchablePart>& parts) : m_window(window), m_parts(parts) {}

    void visit(const UIView& view, const CGRect& visible) {
        const CGRect frame = view.convertRectToView(view.bounds(), nullptr);
        const CGRect seen = frame.intersection(visible);
        const bool clips = view.clipsToBounds();
        if (!view.isDrawn() || (clips && seen.isEmpty())) {
            return;
        }
        if (const char* role = roleOf(view)) {
            add(view, role, seen);
        }
        for (const std::shared_ptr<UIView>& subview : view.subviews()) {
            visit(*subview, clips ? seen : visible);
        }
    }

private:
    void add(const UIView& view, const char* role, const CGRect& seen) {
        const std::shared_ptr<UIView> hit =
            seen.isEmpty() ? nullptr : m_window.hitTestWithEvent({seen.midX(), seen.midY()}, nullptr);
        if (hit && hit->isDescendantOfView(view)) {
            std::string label;
            appendTexts(view, label);
            const CGPoint origin = m_window.frame().origin;
            m_parts.push_back(
                {role, std::move(label), view.accessibilityIdentifier(), seen.offsetBy(origin.x, origin.y)});
        }
    }

    UIWindow& m_window;
    std::vector<TouchablePart>& m_parts;
};

void addSurroundings(const UIView& view, std::vector<TouchablePart>& parts) {
    const std::string& identifier = view.accessibilityIdentifier();
    if (!identifier.empty()) {
        const bool isHandle = identifier == handleIdentifier;
        const bool isButton = identifier == extensionButtonIdentifier;
        const CGFloat reach = isHandle ? -14 : 0; // a fingertip is larger than the handle
        parts.push_back({isHandle   ? "handle"
                         : isButton ? "button"
                                    : "bubble",
                         view.accessibilityLabel(), identifier,
                         view.convertRectToView(view.bounds(), nullptr).insetBy(reach, reach)});
    }
    for (const std::shared_ptr<UIView>& subview : view.subviews()) {
        addSurroundings(*subview, parts);
    }
}

} // namespace

std::vector<TouchablePart> touchableParts(const ConversationHost& host, const ConversationBackdrop& conversation) {
    std::vector<TouchablePart> parts;
    addSurroundings(*conversation.behind, parts);
    if (host.isOpen()) {
        WindowWalk(host.window(), parts).visit(host.window(), host.window().bounds());
    }
    return parts;
}

std::string surroundingPartAt(const ConversationBackdrop& conversation, CGPoint place) {
    std::vector<TouchablePart> parts;
    addSurroundings(*conversation.behind, parts);
    std::string identifier;
    for (const TouchablePart& part : parts) {
        identifier = part.frame.contains(place) ? part.identifier : identifier;
    }
    return identifier;
}
