#pragma once

#include "platform/uikit/UIEvent.h"
#include "platform/uikit/UINib.h"
#include "platform/uikit/UIScreen.h"
#include "platform/uikit/UITableView.h"
#include "platform/uikit/UITableViewCell.h"
#include "platform/uikit/UITouch.h"
#include "platform/uikit/UIWindow.h"

#include <gtest/gtest.h>

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
        m_filling->leadingAnchor().constraintEqualToAnchor(content->leadingAnchor())->setActive(true);
        m_filling->trailingAnchor().constraintEqualToAnchor(content->trailingAnchor())->setActive(true);
        m_filling->topAnchor().constraintEqualToAnchor(content->topAnchor())->setActive(true);
        m_filling->bottomAnchor().constraintEqualToAnchor(content->bottomAnchor())->setActive(true);
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
struct ListOnScreen {
    explicit ListOnScreen(const std::vector<int>& rows, CGSize size = {320, 480}) {
        UIScreen::mainScreen().configure(size, 3);
        window = std::make_shared<UIWindow>(CGRect{{}, size});
        table = std::make_shared<UITableView>(CGRect{{}, size}, UITableViewStyle::plain);
        list = std::make_shared<List>();
        list->rows = rows;
        nib = std::make_shared<CountingNib>();
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
    void touch(CGPoint from, const std::vector<CGPoint>& through = {}) const {
        const auto finger = std::make_shared<UITouch>(from);
        send(finger, from, UITouchPhase::began);
        for (const CGPoint& point : through) {
            send(finger, point, UITouchPhase::moved);
        }
        send(finger, through.empty() ? from : through.back(), UITouchPhase::ended);
    }
    void send(const std::shared_ptr<UITouch>& finger, CGPoint point, UITouchPhase phase) const {
        finger->moveTo(point, phase);
        UIEvent event{{finger}};
        window->sendEvent(event);
    }

    std::shared_ptr<UIWindow> window;
    std::shared_ptr<UITableView> table;
    std::shared_ptr<List> list;
    std::shared_ptr<CountingNib> nib;
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
