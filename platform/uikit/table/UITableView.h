#pragma once

#include "platform/uikit/controls/UIScrollView.h"
#include "platform/uikit/table/NSIndexPath.h"
#include "platform/uikit/table/UITableViewDataSource.h"
#include "platform/uikit/table/UITableViewDelegate.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class TableGeometry;
class UINib;
class UITableViewCell;

enum class UITableViewCellSeparatorStyle { none, singleLine };

/// Rows in sections, made only when they are seen and used again when they leave. Rows never seen count with an
/// estimate; when a row above the visible ones turns out taller or shorter, the offset moves along so that nothing on
/// screen jumps. Headers scroll with their section (they do not float). No cost grows with rows that are not seen.
class UITableView : public UIScrollView {
public:
    UITableView() : UITableView(CGRect{}) {}
    explicit UITableView(const CGRect& frame);
    explicit UITableView(const NSCoder& coder);
    ~UITableView() override;

    [[nodiscard]] std::shared_ptr<UITableViewDataSource> dataSource() const { return m_dataSource.lock(); }
    void setDataSource(std::weak_ptr<UITableViewDataSource> dataSource);
    [[nodiscard]] std::shared_ptr<UITableViewDelegate> delegate() const { return m_delegate.lock(); }
    void setDelegate(std::weak_ptr<UITableViewDelegate> delegate);

    [[nodiscard]] UITableViewCellSeparatorStyle separatorStyle() const { return m_separatorStyle; }
    void setSeparatorStyle(UITableViewCellSeparatorStyle style);
    /// Points, or UITableViewAutomaticDimension.
    [[nodiscard]] CGFloat rowHeight() const { return m_rowHeight; }
    /// For delegates that do not say; nothing below zero takes up height.
    [[nodiscard]] CGFloat sectionHeaderHeight() const { return m_sectionHeaderHeight; }
    [[nodiscard]] CGFloat sectionFooterHeight() const { return m_sectionFooterHeight; }
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
    /// Null for rows that are not visible; after a reload none is until the next layout.
    [[nodiscard]] std::shared_ptr<UITableViewCell> cellForRowAtIndexPath(NSIndexPath indexPath);
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
    using SharedGeometry = std::shared_ptr<TableGeometry>;
    struct VisiblePart;
    struct Placed;

    // A callback may reload the table. Whoever calls one compares its geometry with the table's afterwards; what
    // answers false or nothing has found out that it is outdated, or that the data source is gone.
    [[nodiscard]] SharedGeometry geometry();
    [[nodiscard]] SharedGeometry makeGeometry();
    [[nodiscard]] CGFloat estimate() const;
    [[nodiscard]] bool layoutRows();
    [[nodiscard]] VisiblePart visiblePart(TableGeometry& geometry);
    void keepTopRow(TableGeometry& geometry, VisiblePart& part);
    [[nodiscard]] std::int64_t fixedLine(const TableGeometry& geometry, const VisiblePart& part) const;
    [[nodiscard]] bool measureBelow(const SharedGeometry& geometry, VisiblePart& part);
    [[nodiscard]] bool measureAbove(const SharedGeometry& geometry, VisiblePart& part);
    [[nodiscard]] std::optional<std::int64_t> measure(const SharedGeometry& geometry, NSIndexPath path);
    [[nodiscard]] bool settle(const TableGeometry& geometry, VisiblePart& part);
    [[nodiscard]] bool show(const SharedGeometry& geometry, const VisiblePart& part);
    void place(const std::vector<Placed>& views);
    [[nodiscard]] std::int64_t topOfSections() const;
    [[nodiscard]] CGRect rectInContent(std::int64_t top, std::int64_t height) const;

    [[nodiscard]] std::shared_ptr<UITableViewCell> visibleCell(const SharedGeometry& geometry, NSIndexPath path);
    [[nodiscard]] std::shared_ptr<UIView> visibleHeader(int section);
    void recycleOutside(const TableGeometry& geometry, const VisiblePart& part);
    void recycleAll();
    void recycle(const std::shared_ptr<UITableViewCell>& cell);

    void highlightTouchedRow(bool highlighted);
    void forgetTouch();
    void selectRow(NSIndexPath indexPath);

    std::weak_ptr<UITableViewDataSource> m_dataSource;
    std::weak_ptr<UITableViewDelegate> m_delegate;
    UITableViewCellSeparatorStyle m_separatorStyle = UITableViewCellSeparatorStyle::singleLine;
    CGFloat m_rowHeight = UITableViewAutomaticDimension;
    /// Height that a row counts with until it is seen. UITableViewAutomaticDimension: the fixed row height, or what the
    /// rows seen before the last reload had on average, or 44.
    CGFloat m_estimatedRowHeight = UITableViewAutomaticDimension;
    CGFloat m_sectionHeaderHeight = UITableViewAutomaticDimension;
    CGFloat m_sectionFooterHeight = UITableViewAutomaticDimension;
    std::shared_ptr<UIView> m_tableHeaderView;
    std::shared_ptr<UIView> m_tableFooterView;
    std::map<std::string, std::shared_ptr<UINib>> m_nibs;
    std::map<std::string, std::vector<std::shared_ptr<UITableViewCell>>> m_reusable;
    std::map<NSIndexPath, std::shared_ptr<UITableViewCell>> m_visible;
    std::map<int, std::shared_ptr<UIView>> m_visibleHeaders; // null for a header without a view
    std::optional<NSIndexPath> m_selected;
    std::optional<NSIndexPath> m_touched;
    SharedGeometry m_geometry; // null from a reload to the next question or layout
    std::optional<CGFloat> m_averageRowHeight;
    CGFloat m_measuredWidth = 0;
    bool m_layingOut = false;
};
