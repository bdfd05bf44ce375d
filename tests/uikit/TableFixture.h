#pragma once

#include "platform/uikit/controllers/UINib.h"
#include "platform/uikit/table/UITableView.h"
#include "platform/uikit/table/UITableViewCell.h"

#include "tests/uikit/ViewFixture.h"

#include <cmath>
#include <functional>
#include <vector>

/// Tables for tests: a list whose rows need so much area that they grow when the table gets narrower.
namespace support {

/// As tall as its area needs at a width, like a text that wraps.
class Filling : public UIView {
public:
    using UIView::UIView;

    void setArea(double area) {
        m_area = area;
        invalidateIntrinsicContentSize();
    }
    [[nodiscard]] CGSize intrinsicContentSize() const override { return {noIntrinsicMetric, m_area / 1000}; }
    [[nodiscard]] CGSize intrinsicContentSizeForWidth(CGFloat width) const override {
        return {noIntrinsicMetric, std::ceil(m_area / width)};
    }

private:
    double m_area = 0;
};

class ListCell : public UITableViewCell {
public:
    ListCell() : UITableViewCell(UITableViewCellStyle::standard, "") {
        const auto content = contentView();
        content->addSubview(m_filling);
        m_filling->setTranslatesAutoresizingMaskIntoConstraints(false);
        tieEdges(m_filling, content);
    }
    void show(NSIndexPath path, double area) {
        shown = path;
        m_filling->setArea(area);
    }
    void prepareForReuse() override { ++reuses; }

    NSIndexPath shown;
    int reuses = 0;

private:
    std::shared_ptr<Filling> m_filling = std::make_shared<Filling>();
};

class CountingNib : public UINib {
public:
    [[nodiscard]] std::string name() const override { return "ListCell"; }
    [[nodiscard]] Result<std::vector<std::shared_ptr<NSObject>>>
    instantiateWithOwner(const std::shared_ptr<NSObject>&) override {
        ++made;
        return std::vector<std::shared_ptr<NSObject>>{std::make_shared<ListCell>()};
    }

    int made = 0;
};

class List : public UITableViewDataSource, public UITableViewDelegate {
public:
    std::vector<int> rows;
    std::function<double(NSIndexPath)> area = [](NSIndexPath) { return 320.0 * 60; };
    std::function<CGFloat(NSIndexPath)> height = [](NSIndexPath) { return UITableViewAutomaticDimension; };
    std::function<CGFloat(int)> headerHeight = [](int) { return 30.0; };
    CGFloat footerHeight = 20;
    std::function<void(UITableView&, NSIndexPath)> whenAsked = [](UITableView&, NSIndexPath) {};
    std::function<void(UITableView&, NSIndexPath)> whenSelected = [](UITableView&, NSIndexPath) {};

    int rowCountsAsked = 0;
    int headerHeightsAsked = 0;
    int cellsAsked = 0;
    int heightsAsked = 0;
    std::vector<int> headersAsked;
    std::vector<NSIndexPath> selections;

    int numberOfSectionsInTableView(UITableView&) override { return static_cast<int>(rows.size()); }
    int tableViewNumberOfRowsInSection(UITableView&, int section) override {
        ++rowCountsAsked;
        return rows[static_cast<std::size_t>(section)];
    }
    std::shared_ptr<UITableViewCell> tableViewCellForRowAtIndexPath(UITableView& table, NSIndexPath path) override {
        ++cellsAsked;
        whenAsked(table, path);
        const auto cell = table.dequeueReusableCellWithIdentifierForIndexPath("row", path);
        dynamic_cast<ListCell&>(*cell).show(path, area(path));
        return cell;
    }
    CGFloat tableViewHeightForRowAtIndexPath(UITableView&, NSIndexPath path) override {
        ++heightsAsked;
        return height(path);
    }
    std::shared_ptr<UIView> tableViewViewForHeaderInSection(UITableView&, int section) override {
        headersAsked.push_back(section);
        return std::make_shared<UIView>(CGRect{});
    }
    CGFloat tableViewHeightForHeaderInSection(UITableView&, int section) override {
        ++headerHeightsAsked;
        return headerHeight(section);
    }
    CGFloat tableViewHeightForFooterInSection(UITableView&, int) override { return footerHeight; }
    void tableViewDidSelectRowAtIndexPath(UITableView& table, NSIndexPath path) override {
        selections.push_back(path);
        whenSelected(table, path);
    }
};

/// A table that fills a window of 320 by 480 points at three pixels a point.
struct ListOnScreen : EmptyWindow {
    explicit ListOnScreen(const std::vector<int>& rows, CGSize size = {320, 480}) : EmptyWindow(size, 3) {
        table = std::make_shared<UITableView>(CGRect{{}, size});
        list->rows = rows;
        table->registerNibForCellReuseIdentifier(nib, "row");
        table->setDataSource(list);
        table->setDelegate(list);
        window->addSubview(table);
    }
    void layout() const { window->layoutIfNeeded(); }
    void scrollTo(CGFloat y) const {
        table->setContentOffset({0, y});
        layout();
    }
    void scrollBy(CGFloat distance) const { scrollTo(table->contentOffset().y + distance); }
    void resize(CGSize size) const {
        table->setFrame({{}, size});
        layout();
    }
    [[nodiscard]] bool isAtEnd() const {
        const CGPoint offset = table->contentOffset();
        return offset == table->clampedOffset({0, -1e9}) || offset == table->clampedOffset({0, 1e9});
    }
    std::shared_ptr<UITableView> table;
    std::shared_ptr<List> list = std::make_shared<List>();
    std::shared_ptr<CountingNib> nib = std::make_shared<CountingNib>();
};

/// Where a row stands on screen.
struct Seen {
    NSIndexPath path;
    CGFloat top;
    CGFloat height;
};

inline std::vector<Seen> rowsSeen(const ListOnScreen& screen) {
    std::vector<Seen> seen;
    for (const NSIndexPath& path : screen.table->indexPathsForVisibleRows()) {
        const CGRect frame = screen.table->cellForRowAtIndexPath(path)->frame();
        seen.push_back({path, frame.minY() - screen.table->contentOffset().y, frame.size.height});
    }
    return seen;
}

} // namespace support
