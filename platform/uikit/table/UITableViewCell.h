#pragma once

#include "platform/uikit/view/UIView.h"

#include <string>

enum class UITableViewCellStyle { standard };
enum class UITableViewCellSelectionStyle { none, standard };

/// One row of a table. The table owns it, gives it its frame and uses it again for other rows; what it shows stands in
/// its content view, which fills it.
class UITableViewCell : public UIView {
public:
    UITableViewCell(UITableViewCellStyle style, const std::string& reuseIdentifier); // initWithStyle:reuseIdentifier:
    explicit UITableViewCell(const NSCoder& coder);                                  // initWithCoder:

    [[nodiscard]] const std::string& reuseIdentifier() const { return m_reuseIdentifier; }
    void setReuseIdentifier(const std::string& identifier) { m_reuseIdentifier = identifier; }
    [[nodiscard]] std::shared_ptr<UIView> contentView() const { return m_contentView; }
    [[nodiscard]] bool isHighlighted() const { return m_highlighted; }
    void setHighlighted(bool highlighted) { setMark(m_highlighted, highlighted); }
    [[nodiscard]] bool isSelected() const { return m_selected; }
    void setSelected(bool selected) { setMark(m_selected, selected); }

    void layoutSubviews() override;

protected:
    [[nodiscard]] bool isLayoutRoot() const override { return true; }
    void drawRect(const CGRect& rect) override;

private:
    void addContentView();
    void setMark(bool& mark, bool isSet);

    std::string m_reuseIdentifier;
    std::shared_ptr<UIView> m_contentView;
    UITableViewCellSelectionStyle m_selectionStyle = UITableViewCellSelectionStyle::standard;
    bool m_highlighted = false;
    bool m_selected = false;
};
