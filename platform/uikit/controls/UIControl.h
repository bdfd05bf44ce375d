#pragma once

#include "platform/uikit/view/UIView.h"

#include <string>

/// What can happen to a control, as bits; the numbers are the platform's own.
enum UIControlEvents : unsigned {
    UIControlEventTouchDown = 1u << 0,
    UIControlEventTouchUpInside = 1u << 6,
    UIControlEventTouchUpOutside = 1u << 7,
    UIControlEventTouchCancel = 1u << 8,
    UIControlEventValueChanged = 1u << 12,
    UIControlEventEditingChanged = 1u << 17,
};

/// A view that turns touches into events and sends each to the targets registered for it. Targets are held weakly;
/// target and control are retained while an action runs.
class UIControl : public UIView {
public:
    explicit UIControl(const CGRect& frame = {}) : UIView(frame) {}
    explicit UIControl(const NSCoder& coder);

    [[nodiscard]] bool isEnabled() const { return m_enabled; }
    void setEnabled(bool enabled);
    [[nodiscard]] bool isHighlighted() const { return m_highlighted; }
    void setHighlighted(bool highlighted);

    /// The same pair of target and action is registered once, however often it is added; its events add up.
    void addTargetActionForControlEvents(const std::shared_ptr<NSObject>& target, const std::string& selector,
                                         unsigned events); // addTarget:action:forControlEvents:
    void sendActionsForControlEvents(unsigned events);     // sendActionsForControlEvents:

    void touchesBeganWithEvent(const TouchSet& touches, UIEvent* event) override;
    void touchesMovedWithEvent(const TouchSet& touches, UIEvent* event) override;
    void touchesEndedWithEvent(const TouchSet& touches, UIEvent* event) override;
    void touchesCancelledWithEvent(const TouchSet& touches, UIEvent* event) override;

protected:
    /// Enabled or highlighted changed.
    virtual void stateChanged() { setNeedsDisplay(); }

private:
    void finishTracking(unsigned events);

    struct Target {
        std::weak_ptr<NSObject> target;
        std::string selector;
        unsigned events;
    };
    std::vector<Target> m_targets;
    bool m_enabled = true;
    bool m_highlighted = false;
    bool m_tracking = false;
};
