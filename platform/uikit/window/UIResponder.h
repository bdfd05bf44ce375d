#pragma once

#include "platform/runtime/NSObject.h"

#include <memory>
#include <set>

class UIEvent;
class UITouch;

/// The touches of one phase, as the platform hands them over: unordered.
using TouchSet = std::set<std::shared_ptr<UITouch>>;

/// Anything that can receive touches and hold the keyboard's attention. A touch that a responder does not handle
/// travels to the next one up the view tree.
class UIResponder : public NSObject {
public:
    /// Not owned; null at the end of the chain.
    [[nodiscard]] virtual UIResponder* nextResponder() const { return nullptr; }

    virtual void touchesBeganWithEvent(const TouchSet& touches, UIEvent* event) { // touchesBegan:withEvent:
        passOn(&UIResponder::touchesBeganWithEvent, touches, event);
    }
    virtual void touchesMovedWithEvent(const TouchSet& touches, UIEvent* event) { // touchesMoved:withEvent:
        passOn(&UIResponder::touchesMovedWithEvent, touches, event);
    }
    virtual void touchesEndedWithEvent(const TouchSet& touches, UIEvent* event) { // touchesEnded:withEvent:
        passOn(&UIResponder::touchesEndedWithEvent, touches, event);
    }
    virtual void touchesCancelledWithEvent(const TouchSet& touches, UIEvent* event) { // touchesCancelled:withEvent:
        passOn(&UIResponder::touchesCancelledWithEvent, touches, event);
    }

    [[nodiscard]] virtual bool canBecomeFirstResponder() const { return false; }
    /// The one responder that holds the keyboard; null when none does.
    [[nodiscard]] static std::shared_ptr<UIResponder> firstResponder();
    [[nodiscard]] bool isFirstResponder() const;
    virtual bool becomeFirstResponder();
    virtual bool resignFirstResponder();

private:
    using Handler = void (UIResponder::*)(const TouchSet&, UIEvent*);
    void passOn(Handler handler, const TouchSet& touches, UIEvent* event) const;
};
