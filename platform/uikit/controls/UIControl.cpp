#include "platform/uikit/controls/UIControl.h"

#include "platform/runtime/ClassRegistry.h"
#include "platform/runtime/SourceLocation.h"
#include "platform/uikit/window/UITouch.h"

UIControl::UIControl(const NSCoder& coder) : UIView(coder), m_enabled(coder.boolean("enabled").value_or(true)) {}

void UIControl::setEnabled(bool enabled) {
    if (m_enabled != enabled) {
        m_enabled = enabled;
        stateChanged();
    }
}

void UIControl::setHighlighted(bool highlighted) {
    if (m_highlighted != highlighted) {
        m_highlighted = highlighted;
        stateChanged();
    }
}

void UIControl::addTargetActionForControlEvents(const std::shared_ptr<NSObject>& target, const std::string& selector,
                                                unsigned events) {
    std::erase_if(m_targets, [](const Target& known) { return known.target.expired(); });
    for (Target& known : m_targets) {
        if (known.target.lock() == target && known.selector == selector) {
            known.events |= events;
            return;
        }
    }
    m_targets.push_back({target, selector, events});
}

void UIControl::sendActionsForControlEvents(unsigned events) {
    const std::shared_ptr<UIControl> self = strong(this);
    const std::vector<Target> targets = m_targets; // an action may change the list
    for (const Target& entry : targets) {
        const std::shared_ptr<NSObject> target = entry.target.lock();
        if (target && (entry.events & events) != 0 && !performSelector(*target, entry.selector, this)) {
            fatalErrorAt(*this, "-[" + classNameOf(*target) + " " + entry.selector +
                                    "]: unrecognized selector sent to instance");
        }
    }
}

void UIControl::touchesBeganWithEvent(const TouchSet& /*touches*/, UIEvent* /*event*/) {
    if (!m_enabled) {
        return;
    }
    m_tracking = true;
    setHighlighted(true);
    sendActionsForControlEvents(UIControlEventTouchDown);
}

void UIControl::touchesMovedWithEvent(const TouchSet& touches, UIEvent* event) {
    if (m_tracking && !touches.empty()) {
        setHighlighted(pointInsideWithEvent((*touches.begin())->locationInView(this), event));
    }
}

void UIControl::touchesEndedWithEvent(const TouchSet& touches, UIEvent* event) {
    const bool isInside = !touches.empty() && pointInsideWithEvent((*touches.begin())->locationInView(this), event);
    finishTracking(isInside ? UIControlEventTouchUpInside : UIControlEventTouchUpOutside);
}

void UIControl::touchesCancelledWithEvent(const TouchSet& /*touches*/, UIEvent* /*event*/) {
    finishTracking(UIControlEventTouchCancel);
}

void UIControl::finishTracking(unsigned events) {
    if (!m_tracking) {
        return;
    }
    m_tracking = false;
    setHighlighted(false);
    if (m_enabled) {
        sendActionsForControlEvents(events);
    }
}
