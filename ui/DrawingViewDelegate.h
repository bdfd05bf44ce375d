#pragma once

/// Told when a stroke begins and when it ends. Both operations are optional: a delegate is an NSObject that registers
/// the actions it implements, "didBeginDrawing" and "didEndDrawing", neither with an argument. Held weakly.
class DrawingViewDelegate {
public:
    virtual ~DrawingViewDelegate() = default;
};
