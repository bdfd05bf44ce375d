#pragma once

#include "platform/graphics/UIBezierPath.h"
#include "platform/uikit/controls/UILabel.h"
#include "simulator/conversation/ConversationHost.h"

// The views that the conversation around the extension is put together from.

class NSURL;

/// A glyph drawn with one colour: filled shapes and stroked lines, in the view's coordinates.
class GlyphView : public UIView {
public:
    GlyphView(const CGRect& frame, std::shared_ptr<UIColor> color) : UIView(frame), m_color(std::move(color)) {}

    void addShape(CGPath path);
    void addLine(CGPath path, CGFloat width);
    void drawRect(const CGRect& rect) override;

private:
    std::shared_ptr<UIColor> m_color;
    std::vector<std::unique_ptr<UIBezierPath>> m_shapes;
    std::vector<std::unique_ptr<UIBezierPath>> m_lines;
};

/// A colour of the platform by its property name, "labelColor"; stops the program when there is none.
[[nodiscard]] std::shared_ptr<UIColor> systemColor(const char* name);
/// For names and hints: less than the label's colour, and readable (4.5:1) on every ground of the conversation.
[[nodiscard]] std::shared_ptr<UIColor> quietColor();
/// A plain area; with a radius, rounded.
[[nodiscard]] std::shared_ptr<UIView> area(const CGRect& frame, const std::shared_ptr<UIColor>& color,
                                           CGFloat radius = 0);
/// A text of its natural size, at the origin; wraps and is `widest` wide at most where that is given.
[[nodiscard]] std::shared_ptr<UILabel> caption(const std::string& text, CGFloat size, UIFontWeight weight,
                                               const std::shared_ptr<UIColor>& color, CGFloat widest = 0);
/// Moves a view so that its middle is there, but for the fraction of a point.
void centre(UIView& view, CGPoint middle);
/// Moves everything in a view to the other side, as on a phone whose language runs from right to left.
void mirror(UIView& view);

/// The phone's own line at the top of the screen: time, reception and battery, arranged as on that device.
[[nodiscard]] std::shared_ptr<UIView> makeStatusBar(const Device& device);
/// The latest messages of a quiet conversation and those that arrived since, the newest at the bottom; as many as fit
/// as a whole.
[[nodiscard]] std::shared_ptr<UIView> makeTranscript(const CGRect& frame, const std::vector<ArrivedMessage>& arrived);
/// What the phone shows while a link is opened: where it leads and what it says, on a card at the top of the screen.
[[nodiscard]] std::shared_ptr<UIView> makeHandOverCard(const Device& device, const NSURL& link);
