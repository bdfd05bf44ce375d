#include "ui/UIButton+Handler.h"

#include "platform/runtime/NSObject.h"

#include <string>
#include <utility>

namespace {

/// Its address is the key of the association; the text only helps in a debugger.
const std::string handlerKey = "genericTouchUpInsideHandler";

/// A handler as an object, so that it can be associated.
class HandlerObject : public NSObject {
public:
    explicit HandlerObject(TouchUpInsideHandler handler) : m_handler(std::move(handler)) {}
    [[nodiscard]] const TouchUpInsideHandler& handler() const { return m_handler; }

private:
    TouchUpInsideHandler m_handler;
};

} // namespace

void setTouchUpInsideHandler(UIButton& button, TouchUpInsideHandler handler) {
    objc_setAssociatedObject(button, &handlerKey, std::make_shared<HandlerObject>(std::move(handler)),
                             OBJC_ASSOCIATION_RETAIN);
    button.addTargetActionForControlEvents(button.shared_from_this(),
                                           "handleButtonTouchEventWithSender:", UIControlEventTouchUpInside);
}

void handleButtonTouchEventWithSender(UIButton& button, NSObject* sender) {
    // Held while it runs: the handler may store another one on the same button.
    const auto stored = std::dynamic_pointer_cast<HandlerObject>(objc_getAssociatedObject(button, &handlerKey));
    auto* tapped = dynamic_cast<UIButton*>(sender);
    if (stored && stored->handler() && tapped != nullptr) {
        stored->handler()(*tapped);
    }
}
