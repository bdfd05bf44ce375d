#pragma once

#include "platform/foundation/Geometry.h"
#include "platform/graphics/UIColor.h"
#include "platform/runtime/NSCoder.h"
#include "platform/uikit/view/CALayer.h"
#include "platform/uikit/view/LayoutMarks.h"
#include "platform/uikit/view/NSLayoutConstraint.h"
#include "platform/uikit/window/UIResponder.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

class UIViewController;
class UIWindow;
class ViewSystem;

enum class UIViewContentMode {
    scaleToFill,
    scaleAspectFit,
    scaleAspectFill,
    redraw,
    center,
    top,
    bottom,
    left,
    right,
    topLeft,
    topRight,
    bottomLeft,
    bottomRight,
};

/// Which distances grow and shrink with the superview, as bits.
enum UIViewAutoresizing : unsigned {
    UIViewAutoresizingNone = 0,
    UIViewAutoresizingFlexibleLeftMargin = 1u << 0,
    UIViewAutoresizingFlexibleWidth = 1u << 1,
    UIViewAutoresizingFlexibleRightMargin = 1u << 2,
    UIViewAutoresizingFlexibleTopMargin = 1u << 3,
    UIViewAutoresizingFlexibleHeight = 1u << 4,
    UIViewAutoresizingFlexibleBottomMargin = 1u << 5,
};

/// How firmly a view keeps to the size of its content, along one axis.
struct ContentPriorities {
    UILayoutPriority hugging = UILayoutPriorityDefaultLow;
    UILayoutPriority compressionResistance = UILayoutPriorityDefaultHigh;
};

/// A rectangle on the screen that lays out, draws and hit-tests itself and its subviews. A view owns its subviews and
/// the constraints it holds; the superview is a plain back reference that is cleared when the superview goes.
class UIView : public UIResponder {
public:
    /// intrinsicContentSize() of a view without a natural width or height.
    static constexpr CGFloat noIntrinsicMetric = -1;

    explicit UIView(const CGRect& frame = {}); // initWithFrame:
    explicit UIView(const NSCoder& coder);     // initWithCoder:
    ~UIView() override;

    // Geometry, in points. `frame` is in the superview's coordinates, `bounds` in the view's own.
    [[nodiscard]] CGRect frame() const;
    void setFrame(const CGRect& frame);
    [[nodiscard]] const CGRect& bounds() const { return m_bounds; }
    /// A changed origin scrolls the content; a changed size lays the subviews out again.
    virtual void setBounds(const CGRect& bounds);
    [[nodiscard]] CGPoint center() const { return m_center; }
    void setCenter(CGPoint center);
    /// A null view stands for the window's coordinates.
    [[nodiscard]] CGPoint convertPointToView(CGPoint point, const UIView* view) const;
    [[nodiscard]] CGPoint convertPointFromView(CGPoint point, const UIView* view) const;
    [[nodiscard]] CGRect convertRectToView(const CGRect& rect, const UIView* view) const;

    // The tree.
    [[nodiscard]] UIView* superview() const { return m_superview; }
    [[nodiscard]] const std::vector<std::shared_ptr<UIView>>& subviews() const { return m_subviews; }
    [[nodiscard]] UIWindow* window() const;
    void addSubview(const std::shared_ptr<UIView>& view) { attach(view, m_subviews.size()); }
    void insertSubviewAtIndex(const std::shared_ptr<UIView>& view, std::size_t index) { attach(view, index); }
    void bringSubviewToFront(UIView& view);
    void removeFromSuperview();
    [[nodiscard]] bool isDescendantOfView(const UIView& view) const;
    /// This view or the first descendant with the tag; null when none has it.
    [[nodiscard]] std::shared_ptr<UIView> viewWithTag(int tag);
    /// The controller whose view this is; null for other views.
    [[nodiscard]] UIViewController* viewController() const { return m_viewController; }
    /// For the controller; its root view has wider margins unless they were set.
    void setViewController(UIViewController* controller);

    // Look.
    [[nodiscard]] std::shared_ptr<CALayer> layer() const { return m_layer; }
    [[nodiscard]] std::shared_ptr<UIColor> backgroundColor() const { return m_backgroundColor; }
    void setBackgroundColor(const std::shared_ptr<UIColor>& color);
    [[nodiscard]] CGFloat alpha() const { return m_alpha; }
    void setAlpha(CGFloat alpha) { changeLook(m_alpha, alpha); }
    [[nodiscard]] bool isHidden() const { return m_hidden; }
    void setHidden(bool hidden) { changeLook(m_hidden, hidden); }
    /// Whether the view takes part in what is painted and touched, with all inside it, as far as it decides this
    /// itself: neither hidden nor all but transparent. It may still lie outside of what its superviews clip, or be
    /// empty.
    [[nodiscard]] bool isDrawn() const { return !m_hidden && m_alpha > 0.01; }
    [[nodiscard]] bool clipsToBounds() const { return m_layer->masksToBounds(); }
    void setClipsToBounds(bool clips) { m_layer->setMasksToBounds(clips); }
    [[nodiscard]] UIViewContentMode contentMode() const { return m_contentMode; }
    void setContentMode(UIViewContentMode mode) { changeLook(m_contentMode, mode); }

    // Drawing.
    /// Has the view's own rectangle drawn again.
    void setNeedsDisplay() { invalidate(m_bounds, this); }
    /// Has everything painted again that the view reaches with its shadow and its subviews. What changes that is to be
    /// painted calls it before and after: the old look and the new may differ in their reach.
    void setNeedsRepaint() { invalidate(paintedRect()); }
    virtual void drawRect(const CGRect& /*rect*/) {} // drawRect:
    /// What drawRect can reach, in this view's coordinates: the bounds, or more where content stands out of a view that
    /// does not clip.
    [[nodiscard]] virtual CGRect drawnRect() const { return m_bounds; }
    /// What this view and its subviews paint, with shadows, in its own coordinates.
    [[nodiscard]] CGRect paintedRect() const;

    // Touches.
    void setUserInteractionEnabled(bool enabled) { m_userInteractionEnabled = enabled; }
    /// The deepest visible, enabled view under the point, which is in this view's coordinates; null when outside.
    [[nodiscard]] virtual std::shared_ptr<UIView> hitTestWithEvent(CGPoint point, UIEvent* event); // hitTest:withEvent:
    [[nodiscard]] virtual bool pointInsideWithEvent(CGPoint point, UIEvent* event) const; // pointInside:withEvent:
    [[nodiscard]] UIResponder* nextResponder() const override;

    // Identity.
    [[nodiscard]] int tag() const { return m_tag; }
    void setTag(int tag) { m_tag = tag; }
    [[nodiscard]] const std::string& accessibilityIdentifier() const { return m_accessibilityIdentifier; }
    void setAccessibilityIdentifier(const std::string& identifier) { m_accessibilityIdentifier = identifier; }
    [[nodiscard]] const std::string& accessibilityLabel() const { return m_accessibilityLabel; }
    void setAccessibilityLabel(const std::string& label) { m_accessibilityLabel = label; }

    // Constraints and layout.
    [[nodiscard]] bool translatesAutoresizingMaskIntoConstraints() const { return m_autoresizes; }
    void setTranslatesAutoresizingMaskIntoConstraints(bool translates);
    [[nodiscard]] unsigned autoresizingMask() const { return m_autoresizingMask; }
    void setAutoresizingMask(unsigned mask) { m_autoresizingMask = mask; }
    /// The constraints this view holds, for itself and its descendants.
    [[nodiscard]] const std::vector<std::shared_ptr<NSLayoutConstraint>>& constraints() const { return m_constraints; }
    void addConstraint(const std::shared_ptr<NSLayoutConstraint>& constraint);
    void removeConstraint(const std::shared_ptr<NSLayoutConstraint>& constraint);
    [[nodiscard]] NSLayoutAnchor leftAnchor() { return anchor(LayoutAttribute::left); }
    [[nodiscard]] NSLayoutAnchor rightAnchor() { return anchor(LayoutAttribute::right); }
    [[nodiscard]] NSLayoutAnchor topAnchor() { return anchor(LayoutAttribute::top); }
    [[nodiscard]] NSLayoutAnchor bottomAnchor() { return anchor(LayoutAttribute::bottom); }
    [[nodiscard]] const ContentPriorities& horizontalPriorities() const { return m_horizontalPriorities; }
    [[nodiscard]] const ContentPriorities& verticalPriorities() const { return m_verticalPriorities; }
    /// Width and height the content would like; noIntrinsicMetric where it has no wish.
    [[nodiscard]] virtual CGSize intrinsicContentSize() const { return {noIntrinsicMetric, noIntrinsicMetric}; }
    /// The same when the width is already known (texts that wrap); by default intrinsicContentSize().
    [[nodiscard]] virtual CGSize intrinsicContentSizeForWidth(CGFloat /*width*/) const {
        return intrinsicContentSize();
    }
    /// Distance of the first and last text baseline from the top for a given size; absent for views without text.
    [[nodiscard]] virtual std::optional<CGFloat> firstBaseline(CGSize /*size*/) const { return std::nullopt; }
    [[nodiscard]] virtual std::optional<CGFloat> lastBaseline(CGSize /*size*/) const { return std::nullopt; }
    void invalidateIntrinsicContentSize() { setNeedsUpdateConstraints(); }
    /// Has the constraints around this view solved again at the next layout.
    void setNeedsUpdateConstraints();
    /// The smallest height that satisfies the constraints inside this view at exactly this width.
    [[nodiscard]] CGFloat heightFittingWidth(CGFloat width); // systemLayoutSizeFittingSize: with a required width

    [[nodiscard]] const UIEdgeInsets& layoutMargins() const { return m_layoutMargins; }
    void setLayoutMargins(const UIEdgeInsets& margins);
    /// How far the device's rounded corners, bars and indicators reach into this view; never into scrolled content.
    [[nodiscard]] UIEdgeInsets safeAreaInsets() const;

    void setNeedsLayout() { mark(LayoutMarks::subviews); }
    /// Lays out the tree that this view stands in, from its top down: solves the constraints that changed, places their
    /// views, runs layoutSubviews where it is due. What that changes is laid out in the same call, but not forever:
    /// after some rounds the work left waits for the next call. A clean tree costs one look at its top.
    void layoutIfNeeded();
    virtual void layoutSubviews() {} // overrides call the base class first
    /// The reader has set another text size, which the screen knows. Sent to every view of a window.
    virtual void contentSizeCategoryDidChange() {}
    /// Whether this view's subviews are laid out apart from the tree above it (scroll views, whose content has
    /// coordinates of its own). Such a view is solved as the root of its own system.
    [[nodiscard]] virtual bool isLayoutRoot() const { return false; }

protected:
    /// Whether layoutIfNeeded() at this view, the top of its tree, has something to do.
    [[nodiscard]] bool isLayoutDue() const { return m_layout.marks.areAny(); }
    /// A rectangle in this view's coordinates must be painted again: because of what `drawn` draws in its drawRect and
    /// for no other reason, unless that is null.
    virtual void invalidate(const CGRect& rect, UIView* drawn = nullptr);

private:
    friend class ViewSystem; // for place() and setPlacedByConstraints()

    /// What the layout knows of this view.
    struct Layout {
        LayoutMarks marks;
        bool byConstraints = false;          // the solver places this view or takes account of it
        std::unique_ptr<ViewSystem> placing; // of the system this view is the root of; made by the first layout
        std::unique_ptr<ViewSystem> fitting; // the same for heightFittingWidth
    };

    // The tree.
    void attach(const std::shared_ptr<UIView>& view, std::size_t index);
    void detachFromSuperview();
    void dropConstraintsInto(const UIView& subtree);
    [[nodiscard]] UIView& topView() const;

    // Geometry and look.
    /// To be added to a point in this view's coordinates to have it in the superview's.
    [[nodiscard]] CGPoint shiftToSuperview() const { return frame().origin - m_bounds.origin; }
    /// Sets the frame without having the constraints solved again.
    void place(const CGRect& frame);
    void applyGeometry(CGPoint center, const CGRect& bounds);
    /// Down, in points; what is painted of it can be moved along.
    void moveContent(CGFloat distance);
    void resizeSubviews(CGSize before);
    template <class Value>
    void changeLook(Value& field, const Value& value) {
        if (field != value) {
            setNeedsRepaint();
            field = value;
            setNeedsRepaint();
        }
    }

    // Layout.
    [[nodiscard]] NSLayoutAnchor anchor(LayoutAttribute attribute);
    void setPlacedByConstraints(bool isPlaced) { m_layout.byConstraints = isPlaced; }
    [[nodiscard]] bool isSystemRoot() const;
    /// Views or constraints came or went: the descriptions kept for the solver are worthless.
    void systemStructureChanged();
    void mark(LayoutMarks::Mark mark);
    void layOut();
    void solveConstraints();

    CGRect m_bounds;
    CGPoint m_center;
    UIView* m_superview = nullptr;
    std::vector<std::shared_ptr<UIView>> m_subviews;
    std::shared_ptr<CALayer> m_layer;
    std::shared_ptr<UIColor> m_backgroundColor;
    CGFloat m_alpha = 1;
    bool m_hidden = false;
    bool m_userInteractionEnabled = true;
    bool m_autoresizes = true;
    bool m_ownLayoutMargins = false; // the margins were set, so no context chooses them
    UIViewContentMode m_contentMode = UIViewContentMode::scaleToFill;
    unsigned m_autoresizingMask = UIViewAutoresizingNone;
    int m_tag = 0;
    std::string m_accessibilityIdentifier;
    std::string m_accessibilityLabel;
    std::vector<std::shared_ptr<NSLayoutConstraint>> m_constraints;
    ContentPriorities m_horizontalPriorities;
    ContentPriorities m_verticalPriorities;
    UIEdgeInsets m_layoutMargins{8, 8, 8, 8};
    Layout m_layout;
    UIViewController* m_viewController = nullptr;
};
