#pragma once

#include "platform/uikit/controllers/UINib.h"
#include "platform/uikit/table/UITableView.h"
#include "platform/uikit/table/UITableViewCell.h"

#include "tests/uikit/ViewFixture.h"

#include <cmath>
#include <functional>
#include <map>
#include <string>
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
    /// Runs in every callback, before it answers from what the list then holds.
    std::function<void(const std::string& callback, UITableView&)> during = [](const std::string&, UITableView&) {};

    std::map<std::string, int> asked; // how often, by callback
    std::vector<int> headersAsked;
    std::vector<NSIndexPath> selections;

    int numberOfSectionsInTableView(UITableView& table) override {
        note("sections", table);
        return static_cast<int>(rows.size());
    }
    int tableViewNumberOfRowsInSection(UITableView& table, int section) override {
        note("rows", table);
        return rows.at(static_cast<std::size_t>(section));
    }
    std::shared_ptr<UITableViewCell> tableViewCellForRowAtIndexPath(UITableView& table, NSIndexPath path) override {
        note("cell", table);
        const auto cell = table.dequeueReusableCellWithIdentifierForIndexPath("row", path);
        dynamic_cast<ListCell&>(*cell).show(path, area(path));
        return cell;
    }
    CGFloat tableViewHeightForRowAtIndexPath(UITableView& table, NSIndexPath path) override {
        note("height", table);
        return height(path);
    }
    std::shared_ptr<UIView> tableViewViewForHeaderInSection(UITableView& table, int section) override {
        note("header", table);
        headersAsked.push_back(section);
        return std::make_shared<UIView>(CGRect{});
    }
    CGFloat tableViewHeightForHeaderInSection(UITableView& table, int section) override {
        note("header height", table);
        return headerHeight(section);
    }
    CGFloat tableViewHeightForFooterInSection(UITableView& table, int) override {
        note("footer height", table);
        return footerHeight;
    }
    void tableViewDidSelectRowAtIndexPath(UITableView& table, NSIndexPath path) override {
        selections.push_back(path);
        note("choice", table);
    }

private:
    void note(const std::string& callback, UITableView& table) {
        ++asked[callback];
        during(callback, table);
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
    std::shared_ptr<UITableView> table;
    std::shared_ptr<List> list = std::make_shared<List>();
    std::shared_ptr<CountingNib> nib = std::make_shared<CountingNib>();
};

/// Where a row stands on screen.
struct Seen {
    NSIndexPath path;
    CGFloat top;
    std::shared_ptr<UITableViewCell> cell;
};

inline std::vector<Seen> rowsSeen(const ListOnScreen& screen) {
    std::vector<Seen> seen;
    for (const NSIndexPath& path : screen.table->indexPathsForVisibleRows()) {
        const auto cell = screen.table->cellForRowAtIndexPath(path);
        seen.push_back({path, cell->frame().minY() - screen.table->contentOffset().y, cell});
    }
    return seen;
}

} // namespace support
