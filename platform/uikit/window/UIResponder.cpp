#include "platform/uikit/window/UIResponder.h"

namespace {

std::weak_ptr<UIResponder>& current() {
    static std::weak_ptr<UIResponder> responder;
    return responder;
}

} // namespace

/// The next responder is retained while it handles a touch: what it does may take it off the screen.
void UIResponder::passOn(Handler handler, const TouchSet& touches, UIEvent* event) const {
    if (const std::shared_ptr<UIResponder> next = strong(nextResponder())) {
        (next.get()->*handler)(touches, event);
    }
}

std::shared_ptr<UIResponder> UIResponder::firstResponder() {
    return current().lock();
}

bool UIResponder::isFirstResponder() const {
    return firstResponder().get() == this;
}

bool UIResponder::becomeFirstResponder() {
    if (isFirstResponder()) {
        return true;
    }
    if (!canBecomeFirstResponder()) {
        return false;
    }
    const std::shared_ptr<UIResponder> before = firstResponder();
    if (before && !before->resignFirstResponder()) {
        return false;
    }
    current() = strong(this);
    return true;
}

bool UIResponder::resignFirstResponder() {
    if (isFirstResponder()) {
        current().reset();
    }
    return true;
}
