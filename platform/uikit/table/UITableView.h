#pragma once

#include "platform/uikit/controls/UIScrollView.h"
#include "platform/uikit/table/TableSource.h"
#include "platform/uikit/table/UITableViewDelegate.h"

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class UINib;
class UITableViewCell;

enum class UITableViewCellSeparatorStyle { none, singleLine };

/// Rows in sections, made only when they are seen and used again when they leave. Its source asks the data source and
/// the delegate, its rows know where everything stands, the table places the views. Rows never seen count with an
/// estimate; when a row above the visible ones turns out taller or shorter, the offset moves along so that nothing on
/// screen jumps. Headers scroll with their section (they do not float). No cost grows with rows that are not seen.
class UITableView : public UIScrollView {
public:
    /// Where neither the delegate nor the row itself says more.
    static constexpr CGFloat defaultRowHeight = 44;

    explicit UITableView(const CGRect& frame = {}) : UIScrollView(frame) {}
    explicit UITableView(const NSCoder& coder);

    [[nodiscard]] std::shared_ptr<UITableViewDataSource> dataSource() const { return m_source.dataSource(); }
    void setDataSource(std::weak_ptr<UITableViewDataSource> dataSource);
    [[nodiscard]] std::shared_ptr<UITableViewDelegate> delegate() const { return m_source.delegate(); }
    void setDelegate(std::weak_ptr<UITableViewDelegate> delegate);

    [[nodiscard]] UITableViewCellSeparatorStyle separatorStyle() const { return m_separatorStyle; }
    void setSeparatorStyle(UITableViewCellSeparatorStyle style) { m_separatorStyle = style; }
    /// Points, or UITableViewAutomaticDimension.
    [[nodiscard]] CGFloat rowHeight() const { return m_rowHeight; }
    /// Height that a row counts with until it is seen. UITableViewAutomaticDimension: the fixed row height, or what the
    /// rows seen before the last reload had on average, or the default.
    [[nodiscard]] CGFloat estimatedRowHeight() const { return m_estimatedRowHeight; }
    /// For delegates that do not say; nothing below zero takes up height.
    [[nodiscard]] CGFloat sectionHeaderHeight() const { return m_sectionHeaderHeight; }
    [[nodiscard]] CGFloat sectionFooterHeight() const { return m_sectionFooterHeight; }
    /// A table has no header and footer of its own: the compiler refuses any view.
    void setTableHeaderView(std::nullptr_t) {}
    void setTableFooterView(std::nullptr_t) {}

    /// registerNib:forCellReuseIdentifier:
    void registerNibForCellReuseIdentifier(const std::shared_ptr<UINib>& nib, const std::string& identifier) {
        m_nibs[identifier] = nib;
    }
    /// dequeueReusableCellWithIdentifier:forIndexPath: — a cell that left the screen, or a new one from the nib. An
    /// identifier without a nib, or a nib without a cell, stops the program.
    [[nodiscard]] std::shared_ptr<UITableViewCell>
    dequeueReusableCellWithIdentifierForIndexPath(const std::string& identifier, NSIndexPath indexPath);

    /// Forgets rows, heights and the selection; what is visible is made anew at the next layout. Keeps the offset as
    /// far as the new content allows.
    void reloadData();
    [[nodiscard]] int numberOfSections() { return rows()->numberOfSections(); }
    /// Content coordinates; rows not seen yet stand where the estimate puts them.
    [[nodiscard]] CGRect rectForRowAtIndexPath(NSIndexPath indexPath);
    [[nodiscard]] std::optional<NSIndexPath> indexPathForRowAtPoint(CGPoint point);
    /// Null for rows that are not visible; after a reload none is until the next layout.
    [[nodiscard]] std::shared_ptr<UITableViewCell> cellForRowAtIndexPath(NSIndexPath indexPath);
    [[nodiscard]] std::vector<NSIndexPath> indexPathsForVisibleRows();
    [[nodiscard]] std::vector<std::shared_ptr<UITableViewCell>> visibleCells();
    [[nodiscard]] std::optional<NSIndexPath> indexPathForSelectedRow() const { return m_selected; }

    void layoutSubviews() override;
    /// Rows are measured again, and the topmost keeps its place. Cells that wait for a row would miss the change.
    void contentSizeCategoryDidChange() override;
    void touchesBeganWithEvent(const TouchSet& touches, UIEvent* event) override;
    void touchesMovedWithEvent(const TouchSet& touches, UIEvent* event) override;
    void touchesEndedWithEvent(const TouchSet& touches, UIEvent* event) override;
    void touchesCancelledWithEvent(const TouchSet& touches, UIEvent* event) override;

private:
    using Views = std::map<NSIndexPath, std::shared_ptr<UIView>>;

    [[nodiscard]] std::shared_ptr<TableRows> rows();
    [[nodiscard]] CGRect rectOf(const TableItem& item) const;

    // False or absent when a callback has outdated the rows, or the data source is gone.
    [[nodiscard]] bool layoutRows();
    [[nodiscard]] std::optional<Pixels> measure(const TableRows& rows, NSIndexPath path);
    [[nodiscard]] bool placeViews(const TableRows& rows);
    [[nodiscard]] std::optional<std::shared_ptr<UIView>> viewFor(const TableRows& rows, NSIndexPath path);
    void recycleHidden(const TableRows& rows);
    void recycle(const std::shared_ptr<UIView>& view);

    void mark(UITableViewCell& cell, NSIndexPath path) const;
    void markRows() const;

    TableSource m_source{*this};
    UITableViewCellSeparatorStyle m_separatorStyle = UITableViewCellSeparatorStyle::singleLine;
    CGFloat m_rowHeight = UITableViewAutomaticDimension;
    CGFloat m_estimatedRowHeight = UITableViewAutomaticDimension;
    CGFloat m_sectionHeaderHeight = UITableViewAutomaticDimension;
    CGFloat m_sectionFooterHeight = UITableViewAutomaticDimension;
    std::map<std::string, std::shared_ptr<UINib>> m_nibs;
    std::map<std::string, std::vector<std::shared_ptr<UITableViewCell>>> m_reusable;
    Views m_views; // of the items that are seen, cells and headers; null for what has no view
    std::optional<NSIndexPath> m_selected;
    std::optional<NSIndexPath> m_touched;
    static constexpr CGFloat neverMeasured = -1;
    CGFloat m_measuredWidth = 0; // that the heights of rows are for
    bool m_layingOut = false;
};
