#pragma once

#include "game/CategoriesVC.h"
#include "platform/dispatch/MainRunLoop.h"
#include "platform/uikit/controllers/UIStoryboard.h"
#include "platform/uikit/table/UITableViewCell.h"
#include "simulator/conversation/BundleSetup.h"
#include "simulator/conversation/ConversationHost.h"
#include "simulator/conversation/Finger.h"
#include "tests/support/Output.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

/// The category screen of the assembled bundle in a simulated conversation, with small content: each of the groups has
/// a titled section of two items, an untitled one of one item, and texts that name the group.
class GameTest : public testing::Test {
protected:
    GameTest() {
        MainRunLoop::shared().useVirtualClock();
        for (const char* group : {"Adult (18+)", "Friends", "Couple", "Family", "Dating"}) {
            replace(std::string(group) + ".json", contentOf(group));
        }
    }
    ~GameTest() override {
        if (host) {
            host->close();
        }
        MainRunLoop::shared().reset();
    }

    static std::string contentOf(const std::string& group) {
        return R"([{"sectionTitle": ")" + group + R"( titled", "items": [
            {"icon": "icon_rose", "title": "One & two", "subtitle": "", "isSelected": true},
            {"icon": "icon_key", "title": "Second", "subtitle": "of )" +
               group + R"(", "isSelected": false}]},
            {"sectionTitle": "", "items": [
            {"icon": "none", "title": "Third", "subtitle": "", "isSelected": false}]}])";
    }
    /// Before open(): lets a text take the place of a file of the bundle.
    void replace(const std::string& name, const std::string& text) {
        overrides.push_back({name, folder.write(name, text).string()});
    }
    void open(const std::string& device = "15") {
        openExtensionBundle(TD_BUNDLE, overrides);
        host = std::make_shared<ConversationHost>(deviceNamed(device).value(), std::vector<std::string>{"A"});
    }
    /// Opens the extension and lets it load and grow.
    void openAndSettle(const std::string& device = "15") {
        open(device);
        host->activate(nullptr);
        host->advance(std::chrono::seconds(1));
        EXPECT_EQ(support::takeStandardOutput(), "willBecomeActive\nwillTransition\ndidTransition\n");
    }
    [[nodiscard]] std::shared_ptr<CategoriesVC> screen() const {
        return std::dynamic_pointer_cast<CategoriesVC>(host->controller()->childViewControllers().at(0));
    }
    /// A screen of its own, without controller and host.
    static std::shared_ptr<CategoriesVC> screenByItself() {
        const auto storyboard = UIStoryboard::storyboardWithNameBundle("MainInterface", NSBundle::mainBundle());
        return std::dynamic_pointer_cast<CategoriesVC>(
            storyboard->instantiateViewControllerWithIdentifier("CategoriesVC"));
    }

    void tap(UIView& view) const {
        const CGPoint middle{view.bounds().midX(), view.bounds().midY()};
        Finger(*host).tap(view.convertPointToView(middle, nullptr));
    }
    void tapBox() const { tap(*screen()->viewDropDownButton); }
    void tapRow(UITableView& table, NSIndexPath row) const {
        const auto cell = table.cellForRowAtIndexPath(row);
        ASSERT_NE(cell, nullptr) << "row " << row.row << " is not visible";
        tap(*cell);
    }
    void choose(int row) const {
        tapBox();
        tapRow(*screen()->tblDropDown(), {0, row});
    }
    /// Titles of the sections that the screen shows, each after a bar.
    static std::string titlesOf(const CategoriesVC& screen) {
        std::string titles;
        for (const ModeSection& section : screen.sections()) {
            titles += "|" + section.sectionTitle();
        }
        return titles;
    }
    /// The marked rows of the dropdown.
    static std::string marksOf(const CategoriesVC& screen) {
        std::string marks;
        for (const std::shared_ptr<MainCategoryModel>& entry : screen.arrMainCategories()) {
            marks += entry->selected ? entry->title + ";" : "";
        }
        return marks;
    }

    support::TemporaryFolder folder;
    std::vector<ResourceOverride> overrides;
    std::shared_ptr<ConversationHost> host;
};
