#pragma once

#include "platform/foundation/NSParagraphStyle.h"
#include "platform/foundation/Text.h"
#include "platform/graphics/UIFont.h"
#include "platform/uikit/controls/UIControl.h"

class TextLayout;
class UITextField;

/// Asked by a text field before it takes an edit or ends editing.
class UITextFieldDelegate {
public:
    virtual ~UITextFieldDelegate() = default;

    /// textField:shouldChangeCharactersInRange:replacementString: — the range counts UTF-16 code units.
    virtual bool textFieldShouldChangeCharactersInRangeReplacementString(UITextField& /*field*/, NSRange /*range*/,
                                                                         const std::string& /*replacement*/) {
        return true;
    }
    virtual bool textFieldShouldReturn(UITextField& /*field*/) { return true; } // textFieldShouldReturn:
};

/// One line of text that the player edits. A touch makes it first responder; typing goes to the first responder.
class UITextField : public UIControl {
public:
    explicit UITextField(const CGRect& frame = {});
    explicit UITextField(const NSCoder& coder);

    /// Absent when the field has none.
    [[nodiscard]] const std::optional<std::string>& text() const { return m_text; }
    void setText(const std::optional<std::string>& text);
    [[nodiscard]] const std::string& placeholder() const { return m_placeholder; }
    void setPlaceholder(const std::string& placeholder);
    void setDelegate(std::weak_ptr<UITextFieldDelegate> delegate) { m_delegate = std::move(delegate); }

    /// What the keyboard does: asks the delegate, and edits when it agrees. Returns whether the text was edited.
    bool replaceCharactersInRange(NSRange range, const std::string& replacement);
    /// Appends at the end, where the insertion point of this field always stands.
    bool insertText(const std::string& text);
    /// The return key.
    void pressReturn();

    [[nodiscard]] bool canBecomeFirstResponder() const override { return isEnabled(); }
    void touchesEndedWithEvent(const TouchSet& touches, UIEvent* event) override;
    [[nodiscard]] CGSize intrinsicContentSize() const override;
    void drawRect(const CGRect& rect) override;

private:
    [[nodiscard]] bool isEmpty() const { return m_text.value_or("").empty(); }
    [[nodiscard]] std::shared_ptr<const TextLayout> line(std::optional<CGFloat> width) const;

    std::optional<std::string> m_text;
    std::string m_placeholder;
    std::shared_ptr<UIFont> m_font;
    NSTextAlignment m_alignment = NSTextAlignment::natural;
    std::weak_ptr<UITextFieldDelegate> m_delegate;
};
