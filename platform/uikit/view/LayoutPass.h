#pragma once

class UIView;

/// One layout of a tree: solves the constraint systems that changed, places their views, and runs layoutSubviews from
/// the top down where it is due. A clean tree costs one look at its root.
class LayoutPass {
public:
    /// `top` has no superview. What layoutSubviews changes is laid out in the same call, but not forever: after some
    /// rounds the rest waits for the next pass.
    static void run(UIView& top);

    [[nodiscard]] static bool isDue(const UIView& view);

private:
    static void visit(UIView& view);
    static void solve(UIView& root);
};
