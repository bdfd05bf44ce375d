#pragma once

#include "platform/uikit/NSIndexPath.h"
#include "platform/uikit/UIScrollView.h"
#include "platform/uikit/UITableViewDataSource.h"
#include "platform/uikit/UITableViewDelegate.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class TableGeometry;
class UINib;
class UITableViewCell;

enum class UITableViewStyle { plain, grouped, insetGrouped };
enum class UITableViewCellSeparatorStyle { none, singleLine };

/// Rows in sections, made only when they are seen and used again when they leave. Rows never seen count with an
/// estimate; when a row above the visible ones turns out taller or shorter, the offset moves along so that nothing on
/// screen jumps. Headers scroll with their section (they do not float). No cost grows with rows that are not seen.
class UITableView : public UIScrollView {
public:
    UITableView() : UITableView(CGRect{}, UITableViewStyle::plain) {}
    UITableView(const CGRect& frame, UITableViewStyle style);
    explicit UITableView(const NSCoder& coder);
    ~UITableView() override;

    [[nodiscard]] std::shared_ptr<UITableViewDataSource> dataSource() const { return m_dataSource.lock(); }
    void setDataSource(std::weak_ptr<UITableViewDataSource> dataSource);
    [[nodiscard]] std::shared_ptr<UITableViewDelegate> delegate() const { return m_delegate.lock(); }
    void setDelegate(std::weak_ptr<UITableViewDelegate> delegate);

    [[nodiscard]] UITableViewStyle style() const { return m_style; }
    [[nodiscard]] UITableViewCellSeparatorStyle separatorStyle() const { return m_separatorStyle; }
    void setSeparatorStyle(UITableViewCellSeparatorStyle style);
    /// Points, or UITableViewAutomaticDimension.
    [[nodiscard]] CGFloat rowHeight() const { return m_rowHeight; }
    void setRowHeight(CGFloat height);
    /// Height that a self-sizing row counts with until it is seen.
    [[nodiscard]] CGFloat estimatedRowHeight() const { return m_estimatedRowHeight; }
    void setEstimatedRowHeight(CGFloat height);
    /// Null for none; its frame's height is kept, its width follows the table.
    void setTableHeaderView(const std::shared_ptr<UIView>& view);
    void setTableFooterView(const std::shared_ptr<UIView>& view);

    /// registerNib:forCellReuseIdentifier:
    void registerNibForCellReuseIdentifier(const std::shared_ptr<UINib>& nib, const std::string& identifier);
    /// dequeueReusableCellWithIdentifier:forIndexPath: — a cell that left the screen, or a new one from the nib. An
    /// identifier without a nib, or a nib without a cell, stops the program.
    [[nodiscard]] std::shared_ptr<UITableViewCell>
    dequeueReusableCellWithIdentifierForIndexPath(const std::string& identifier, NSIndexPath indexPath);

    /// Forgets rows, heights and the selection; what is visible is made anew at the next layout. Keeps the offset as
    /// far as the new content allows.
    void reloadData();
    [[nodiscard]] int numberOfSections();
    [[nodiscard]] int numberOfRowsInSection(int section);
    /// Content coordinates; rows not seen yet stand where the estimate puts them.
    [[nodiscard]] CGRect rectForRowAtIndexPath(NSIndexPath indexPath);
    [[nodiscard]] CGRect rectForHeaderInSection(int section);
    [[nodiscard]] std::optional<NSIndexPath> indexPathForRowAtPoint(CGPoint point);
    /// Null for rows that are not visible.
    [[nodiscard]] std::shared_ptr<UITableViewCell> cellForRowAtIndexPath(NSIndexPath indexPath);
    [[nodiscard]] std::shared_ptr<UIView> headerViewForSection(int section);
    [[nodiscard]] std::vector<NSIndexPath> indexPathsForVisibleRows();
    [[nodiscard]] std::vector<std::shared_ptr<UITableViewCell>> visibleCells();
    [[nodiscard]] std::optional<NSIndexPath> indexPathForSelectedRow() const { return m_selected; }
    void deselectRowAtIndexPath(NSIndexPath indexPath);

    void layoutSubviews() override;
    void touchesBeganWithEvent(const TouchSet& touches, UIEvent* event) override;
    void touchesMovedWithEvent(const TouchSet& touches, UIEvent* event) override;
    void touchesEndedWithEvent(const TouchSet& touches, UIEvent* event) override;
    void touchesCancelledWithEvent(const TouchSet& touches, UIEvent* event) override;

private:
    std::weak_ptr<UITableViewDataSource> m_dataSource;
    std::weak_ptr<UITableViewDelegate> m_delegate;
    UITableViewStyle m_style;
    UITableViewCellSeparatorStyle m_separatorStyle = UITableViewCellSeparatorStyle::singleLine;
    CGFloat m_rowHeight = UITableViewAutomaticDimension;
    CGFloat m_estimatedRowHeight = UITableViewAutomaticDimension;
    std::shared_ptr<UIView> m_tableHeaderView;
    std::shared_ptr<UIView> m_tableFooterView;
    std::map<std::string, std::shared_ptr<UINib>> m_nibs;
    std::map<std::string, std::vector<std::shared_ptr<UITableViewCell>>> m_reusable;
    std::map<NSIndexPath, std::shared_ptr<UITableViewCell>> m_visible;
    std::map<int, std::shared_ptr<UIView>> m_visibleHeaders;
    std::optional<NSIndexPath> m_selected;
    std::optional<NSIndexPath> m_touched;
    std::unique_ptr<TableGeometry> m_geometry; // null until the next layout after a reload
};
