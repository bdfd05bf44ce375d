#pragma once

#include "platform/uikit/window/UIScreen.h"
#include "platform/uikit/window/UITouch.h"
#include "platform/uikit/window/UIWindow.h"

#include <gtest/gtest.h>

#include <ostream>

inline std::ostream& operator<<(std::ostream& out, const CGRect& rect) {
    return out << "(" << rect.minX() << ", " << rect.minY() << ", " << rect.size.width << ", " << rect.size.height
               << ")";
}

namespace support {

/// Ties edges, centres or lengths of a view to the same ones of another.
inline std::shared_ptr<NSLayoutConstraint> tie(const std::shared_ptr<UIView>& view,
                                               std::initializer_list<LayoutAttribute> attributes,
                                               const std::shared_ptr<UIView>& to, double constant = 0,
                                               LayoutGuide guide = LayoutGuide::view) {
    std::shared_ptr<NSLayoutConstraint> last;
    for (const LayoutAttribute attribute : attributes) {
        last =
            std::make_shared<NSLayoutConstraint>(LayoutEnd{view, LayoutGuide::view, attribute}, LayoutRelation::equal,
                                                 LayoutEnd{to, guide, attribute}, 1, constant);
        last->setActive(true);
    }
    return last;
}
inline void tieEdges(const std::shared_ptr<UIView>& view, const std::shared_ptr<UIView>& outer, double inset = 0,
                     LayoutGuide guide = LayoutGuide::view) {
    tie(view, {LayoutAttribute::left, LayoutAttribute::top}, outer, inset, guide);
    tie(view, {LayoutAttribute::right, LayoutAttribute::bottom}, outer, -inset, guide);
}

/// Gives a width or height of its own.
inline std::shared_ptr<NSLayoutConstraint> fix(const std::shared_ptr<UIView>& view, LayoutAttribute length,
                                               double points) {
    auto constraint = std::make_shared<NSLayoutConstraint>(LayoutEnd{view, LayoutGuide::view, length},
                                                           LayoutRelation::equal, LayoutEnd{}, 1, points);
    constraint->setActive(true);
    return constraint;
}

/// A window of 320 by 480 points on a screen of two pixels a point, with nothing in it.
struct EmptyWindow {
    explicit EmptyWindow(CGSize size = {320, 480}, CGFloat scale = 2) {
        UIScreen::mainScreen().configure(size, scale);
        window = std::make_shared<UIWindow>(CGRect{{}, size});
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

class OnScreen : public testing::Test, protected EmptyWindow {};

} // namespace support
