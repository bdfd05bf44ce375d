#pragma once

#include "platform/uikit/UIEvent.h"
#include "platform/uikit/UIScreen.h"
#include "platform/uikit/UITouch.h"
#include "platform/uikit/UIWindow.h"

#include <gtest/gtest.h>

#include <ostream>

inline std::ostream& operator<<(std::ostream& out, const CGRect& rect) {
    return out << "(" << rect.minX() << ", " << rect.minY() << ", " << rect.size.width << ", " << rect.size.height
               << ")";
}

namespace support {

/// A window of 320 by 480 points on a screen of two pixels a point, with nothing in it.
class OnScreen : public testing::Test {
protected:
    OnScreen() {
        UIScreen::mainScreen().configure({320, 480}, 2);
        window = std::make_shared<UIWindow>(CGRectMake(0, 0, 320, 480));
    }

    std::shared_ptr<UIView> add(const CGRect& frame, const std::shared_ptr<UIView>& to = nullptr) const {
        return add(std::make_shared<UIView>(frame), to);
    }
    template <class View>
    std::shared_ptr<View> add(const std::shared_ptr<View>& view, const std::shared_ptr<UIView>& to = nullptr) const {
        (to ? to : window)->addSubview(view);
        return view;
    }
    /// A view that constraints place.
    template <class View = UIView>
    std::shared_ptr<View> addConstrained(const std::shared_ptr<UIView>& to = nullptr) const {
        const auto view = add(std::make_shared<View>(), to);
        view->setTranslatesAutoresizingMaskIntoConstraints(false);
        return view;
    }

    void send(const std::shared_ptr<UITouch>& touch) const {
        UIEvent event({touch});
        window->sendEvent(event);
    }
    std::shared_ptr<UITouch> touchDown(CGPoint point) const {
        auto touch = std::make_shared<UITouch>(point);
        send(touch);
        return touch;
    }
    void move(const std::shared_ptr<UITouch>& touch, CGPoint point, UITouchPhase phase = UITouchPhase::moved) const {
        touch->moveTo(point, phase);
        send(touch);
    }
    void lift(const std::shared_ptr<UITouch>& touch, CGPoint point) const { move(touch, point, UITouchPhase::ended); }
    void tap(CGPoint point) const { lift(touchDown(point), point); }

    std::shared_ptr<UIWindow> window;
};

} // namespace support
