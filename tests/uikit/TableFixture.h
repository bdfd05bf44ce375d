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
struct Filling : UIView {
    [[nodiscard]] CGSize intrinsicContentSize() const override { return {noIntrinsicMetric, area / 1000}; }
    [[nodiscard]] CGSize intrinsicContentSizeForWidth(CGFloat width) const override {
        return {noIntrinsicMetric, std::ceil(area / width)};
    }
    double area = 0;
};

struct ListCell : UITableViewCell {
    ListCell() : UITableViewCell(UITableViewCellStyle::standard, "") {
        contentView()->addSubview(filling);
        filling->setTranslatesAutoresizingMaskIntoConstraints(false);
        tieEdges(filling, contentView());
    }
    void show(NSIndexPath path, double area) {
        shown = path;
        filling->area = area;
        filling->invalidateIntrinsicContentSize();
    }
    NSIndexPath shown;
    std::shared_ptr<Filling> filling = std::make_shared<Filling>();
};

class ListNib : public UINib {
public:
    using Objects = std::vector<std::shared_ptr<NSObject>>;

    [[nodiscard]] std::string name() const override { return "ListCell"; }
    [[nodiscard]] Result<Objects> instantiateWithOwner(const std::shared_ptr<NSObject>&) override {
        ++made;
        return objects();
    }

    std::function<Result<Objects>()> objects = [] { return Objects{std::make_shared<ListCell>()}; };
    int made = 0;
};

class List : public UITableViewDataSource, public UITableViewDelegate {
public:
    std::vector<int> rows;
    std::function<double(NSIndexPath)> area = [](NSIndexPath) { return 320.0 * 60; };
    std::function<CGFloat(NSIndexPath)> height = [](NSIndexPath) { return UITableViewAutomaticDimension; };
    std::function<CGFloat(int)> headerHeight = [](int) { return 30.0; };
    CGFloat footerHeight = 20;
    /// Runs at the end of every callback.
    std::function<void(const std::string& callback, UITableView&)> during = [](const std::string&, UITableView&) {};

    std::map<std::string, int> asked; // how often, by callback
    std::vector<NSIndexPath> selections;

    int numberOfSectionsInTableView(UITableView& table) override {
        return told("sections", table, static_cast<int>(rows.size()));
    }
    int tableViewNumberOfRowsInSection(UITableView& table, int section) override {
        return told("rows", table, rows.at(static_cast<std::size_t>(section)));
    }
    std::shared_ptr<UITableViewCell> tableViewCellForRowAtIndexPath(UITableView& table, NSIndexPath path) override {
        const auto cell = table.dequeueReusableCellWithIdentifierForIndexPath("row", path);
        dynamic_cast<ListCell&>(*cell).show(path, area(path));
        return told("cell", table, cell);
    }
    CGFloat tableViewHeightForRowAtIndexPath(UITableView& table, NSIndexPath path) override {
        return told("height", table, height(path));
    }
    std::shared_ptr<UIView> tableViewViewForHeaderInSection(UITableView& table, int) override {
        return told("header", table, std::make_shared<UIView>(CGRect{}));
    }
    CGFloat tableViewHeightForHeaderInSection(UITableView& table, int section) override {
        return told("header height", table, headerHeight(section));
    }
    CGFloat tableViewHeightForFooterInSection(UITableView& table, int) override {
        return told("footer height", table, footerHeight);
    }
    void tableViewDidSelectRowAtIndexPath(UITableView& table, NSIndexPath path) override {
        selections.push_back(path);
        told("choice", table, true);
    }

private:
    template <class Answer>
    Answer told(const std::string& callback, UITableView& table, Answer answer) {
        ++asked[callback];
        during(callback, table);
        return answer;
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
    /// Of those that are seen, from the top.
    [[nodiscard]] ListCell& cell(std::size_t index) const {
        return dynamic_cast<ListCell&>(*table->visibleCells().at(index));
    }
    std::shared_ptr<UITableView> table;
    std::shared_ptr<List> list = std::make_shared<List>();
    std::shared_ptr<ListNib> nib = std::make_shared<ListNib>();
};

} // namespace support
