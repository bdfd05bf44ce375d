#include "platform/uikit/window/ScrollMove.h"

#include "platform/foundation/PixelGrid.h"
#include "platform/uikit/view/UIView.h"
#include "platform/uikit/window/UIWindow.h"

#include <typeinfo>

namespace {

bool isOpaque(const UIView& view) {
    return view.backgroundColor() && view.backgroundColor()->resolved(UIUserInterfaceStyle::light).alpha >= 1 &&
           view.backgroundColor()->resolved(UIUserInterfaceStyle::dark).alpha >= 1;
}

/// Views that draw something of their own are not even.
bool isEven(const UIView& view) {
    return typeid(view) == typeid(UIView) || typeid(view) == typeid(UIWindow);
}

/// Whether a view draws nothing over its subviews: no border, no cut corners, no fading.
bool staysBelow(const UIView& view) {
    return view.alpha() >= 1 && !view.layer()->hasBorder() && !view.layer()->cutsCorners();
}

/// Looks at one ancestor and the branches beside the one that leads to the scroll view.
class Surroundings {
public:
    explicit Surroundings(const UIView& scrolled) : m_branch(&scrolled), m_covered(isOpaque(scrolled)) {
        m_move.area = scrolled.convertRectToView(scrolled.bounds(), nullptr);
        m_move.canMovePixels = scrolled.clipsToBounds() && staysBelow(scrolled);
    }

    void climbTo(const UIView& ancestor) {
        if (!m_branch->isDrawn()) {
            m_move.area = {};
        }
        if (ancestor.clipsToBounds()) {
            m_move.area = m_move.area.intersection(ancestor.convertRectToView(ancestor.bounds(), nullptr));
        }
        bool above = false;
        for (const std::shared_ptr<UIView>& sibling : ancestor.subviews()) {
            if (sibling.get() == m_branch) {
                above = true;
            } else if (sibling->isDrawn()) {
                look(*sibling, above);
            }
        }
        m_move.canMovePixels = m_move.canMovePixels && (m_covered || isEven(ancestor)) && staysBelow(ancestor);
        m_covered = m_covered || isOpaque(ancestor);
        m_branch = &ancestor;
    }

    [[nodiscard]] ScrollMove result() const { return m_move; }

private:
    void look(const UIView& sibling, bool above) {
        const CGRect overlap = sibling.convertRectToView(sibling.paintedRect(), nullptr).intersection(m_move.area);
        if (overlap.isEmpty()) {
            return;
        }
        if (above && endsArea(sibling, overlap)) {
            const CGRect area = m_move.area;
            const bool atTop = overlap.minY() < area.minY() + PixelGrid::tolerance;
            m_move.area = CGRectMake(area.minX(), atTop ? overlap.maxY() : area.minY(), area.size.width,
                                     area.size.height - overlap.size.height);
        } else if (above) {
            m_move.overlays.push_back(overlap);
        } else if (!m_covered) {
            m_move.canMovePixels = false; // something uneven shows through from below
        }
    }

    /// Whether a view hides all of the area's upper or lower end, as a bar does: nothing needs to move below it.
    [[nodiscard]] bool endsArea(const UIView& view, const CGRect& overlap) const {
        constexpr CGFloat rounding = PixelGrid::tolerance; // the sums of coordinates differ by less
        const CGRect inner = m_move.area.insetBy(rounding, rounding);
        const CGRect solid = view.convertRectToView(view.bounds(), nullptr).insetBy(-rounding, -rounding);
        const bool acrossIt = solid.contains(overlap) && overlap.minX() < inner.minX() && overlap.maxX() > inner.maxX();
        return acrossIt && isOpaque(view) && view.alpha() >= 1 && view.layer()->cornerRadius() == 0 &&
               (overlap.minY() < inner.minY() || overlap.maxY() > inner.maxY());
    }

    ScrollMove m_move;
    const UIView* m_branch;
    bool m_covered; // what lies further down does not show
};

} // namespace

ScrollMove scrollMoveFor(const UIView& scrolled) {
    Surroundings surroundings(scrolled);
    for (const UIView* ancestor = scrolled.superview(); ancestor != nullptr; ancestor = ancestor->superview()) {
        surroundings.climbTo(*ancestor);
    }
    return surroundings.result();
}
