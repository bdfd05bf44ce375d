#include "simulator/conversation/ScreenElement.h"

#include "platform/runtime/ClassRegistry.h"
#include "platform/uikit/controls/UIControl.h"
#include "platform/uikit/controls/UIImageView.h"
#include "simulator/conversation/ViewTree.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int grid = 7; // points looked at in each direction

bool clips(const UIView& view) {
    return view.clipsToBounds() || view.superview() == nullptr;
}

CGRect frameInWindow(const UIView& view) {
    return view.convertRectToView(view.bounds(), nullptr);
}

/// Whether the view hides what is behind it.
bool paintsOver(const UIView& view) {
    const std::shared_ptr<UIColor> background = view.backgroundColor();
    return background && background->components().alpha * view.alpha() > 0.5;
}

/// Looks for a view in front of `target` that paints over the point.
class CoverSearch {
public:
    CoverSearch(const UIView& target, CGPoint point) : m_target(target), m_point(point) {}

    bool covers(const UIView& view) {
        if (&view == &m_target) {
            m_passed = true;
            return false;
        }
        const bool inside = frameInWindow(view).contains(m_point);
        if (!view.isDrawn() || (clips(view) && !inside && !m_target.isDescendantOfView(view))) {
            return false;
        }
        if (m_passed && inside && paintsOver(view)) {
            return true;
        }
        return std::any_of(view.subviews().begin(), view.subviews().end(),
                           [this](const std::shared_ptr<UIView>& subview) { return covers(*subview); });
    }

private:
    const UIView& m_target;
    CGPoint m_point;
    bool m_passed = false; // what comes from here on is drawn in front of the target
};

} // namespace

ScreenElement::ScreenElement(UIWindow& window, std::shared_ptr<UIView> view)
    : m_window(&window), m_view(std::move(view)), m_texts(textsOf(*m_view)), m_frame(frameInWindow(*m_view)),
      m_visible(m_frame) {
    for (std::string& text : m_texts) {
        std::replace(text.begin(), text.end(), '\n', ' ');
    }
    for (const UIView* at = m_view.get(); at != nullptr; at = at->superview()) {
        if (!at->isDrawn()) {
            m_visible = {};
        } else if (clips(*at)) {
            m_visible = m_visible.intersection(frameInWindow(*at));
        }
    }
}

std::vector<CGPoint> ScreenElement::visiblePoints() const {
    std::vector<CGPoint> points;
    for (int i = 0; i < grid * grid && !m_visible.isEmpty(); ++i) {
        const CGPoint point{m_visible.minX() + m_visible.size.width * (i % grid + 0.5) / grid,
                            m_visible.minY() + m_visible.size.height * (i / grid + 0.5) / grid};
        if (!CoverSearch(*m_view, point).covers(*m_window)) {
            points.push_back(point);
        }
    }
    return points;
}

double ScreenElement::visibleShare() const {
    if (m_frame.isEmpty() || m_visible.isEmpty()) {
        return 0;
    }
    const double inside = m_visible.size.width * m_visible.size.height / (m_frame.size.width * m_frame.size.height);
    return inside * static_cast<double>(visiblePoints().size()) / (grid * grid);
}

bool ScreenElement::isEnabled() const {
    const UIView* at = m_view.get();
    const auto isUsable = [](const UIView& view) {
        const auto* control = dynamic_cast<const UIControl*>(&view);
        return control == nullptr || control->isEnabled();
    };
    while (at != nullptr && isUsable(*at)) {
        at = at->superview();
    }
    return at == nullptr;
}

bool ScreenElement::takesTouchesOf(const UIView& hit) const {
    if (hit.isDescendantOfView(*m_view) || m_view->isDescendantOfView(hit)) {
        return true;
    }
    const bool control = dynamic_cast<const UIControl*>(&hit) != nullptr;
    return control && m_frame.intersection(frameInWindow(hit)) == m_frame;
}

std::optional<CGPoint> ScreenElement::pointToTouch() const {
    const CGPoint middle{m_frame.midX(), m_frame.midY()};
    std::vector<CGPoint> points = visiblePoints();
    const auto distance = [middle](CGPoint point) { return std::hypot(point.x - middle.x, point.y - middle.y); };
    std::stable_sort(points.begin(), points.end(),
                     [&](CGPoint one, CGPoint other) { return distance(one) < distance(other); });
    for (const CGPoint point : points) {
        const std::shared_ptr<UIView> hit = m_window->hitTestWithEvent(point, nullptr);
        if (hit && takesTouchesOf(*hit)) {
            return point;
        }
    }
    return std::nullopt;
}

std::string ScreenElement::receiver() const {
    const std::shared_ptr<UIView> hit = m_window->hitTestWithEvent({m_visible.midX(), m_visible.midY()}, nullptr);
    if (!hit) {
        return "nothing";
    }
    const std::string& identifier = hit->accessibilityIdentifier();
    return "a " + classNameOf(*hit) + (identifier.empty() ? "" : " with id '" + identifier + "'");
}
