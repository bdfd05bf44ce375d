#include "platform/interface/InterfaceCheck.h"
#include "platform/interface/InterfaceReaders.h"
#include "platform/uikit/UINib.h"
#include "platform/uikit/UIStoryboard.h"
#include "tests/interface/StandIns.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

/// The documents that the product ships, as they stand in the source tree.
class ShippedDocuments : public testing::Test {
protected:
    ShippedDocuments() {
        registerStandIns();
        const std::filesystem::path here = __FILE__;
        NSBundle::setMainBundle(here.parent_path().parent_path().parent_path() / "resources");
        installInterfaceReaders();
    }

    template <class T>
    static std::shared_ptr<T> nib(const std::string& name) {
        const auto objects = loadNibNamedOwner(NSBundle::mainBundle(), name, nullptr);
        return objects && !objects->empty() ? std::dynamic_pointer_cast<T>(objects->front()) : nullptr;
    }
};

TEST_F(ShippedDocuments, HaveNoFaultAndNameNothingThatTheCatalogueLacks) {
    for (const InterfaceFinding& finding : checkBundle(NSBundle::mainBundle())) {
        // The pictures are rendered when the bundle is assembled.
        EXPECT_NE(finding.message.find(".png is missing"), std::string::npos) << finding.describe();
    }
}

TEST_F(ShippedDocuments, ConnectEveryOutletOfTheRowsAndTheHeader) {
    const auto mode = nib<StandInModeCell>("ModeTblCell");
    ASSERT_TRUE(mode);
    EXPECT_TRUE(mode->iconImageView.get() && mode->lblTitle.get() && mode->lblDesc.get() && mode->imgSelection.get() &&
                mode->viewBackground.get());
    EXPECT_GT(mode->viewBackground->layer()->cornerRadius(), 0);
    const auto vibe = nib<StandInVibeCell>("VibeDropdownTblCell");
    ASSERT_TRUE(vibe);
    EXPECT_TRUE(vibe->lblTitle.get() && vibe->imgSelected.get() && vibe->viewMain.get());
    const auto header = nib<StandInHeader>("ModeHeaderView");
    ASSERT_TRUE(header);
    EXPECT_TRUE(header->lblHeaderTitle.get());
}

TEST_F(ShippedDocuments, ConnectTheScreen) {
    const auto storyboard = UIStoryboard::storyboardWithNameBundle("MainInterface", NSBundle::mainBundle());
    EXPECT_TRUE(std::dynamic_pointer_cast<StandInMessages>(storyboard->instantiateInitialViewController()));
    const auto screen =
        std::dynamic_pointer_cast<StandInScreen>(storyboard->instantiateViewControllerWithIdentifier("CategoriesVC"));
    ASSERT_TRUE(screen);
    const auto view = screen->view();
    EXPECT_TRUE(screen->tableView.get() && screen->viewDropDownButton.get() && screen->lblDropDown.get() &&
                screen->imgDropDown.get() && screen->cnBottomOfLetsPlay.get());
    EXPECT_TRUE(screen->viewDropDown->isHidden());
    EXPECT_EQ(screen->heightOfTblView->constant(), 293);
    EXPECT_EQ(screen->tblDropDown->delegate(), screen);
    EXPECT_EQ(screen->tblDropDown->dataSource(), screen);
    EXPECT_FALSE(screen->tableView->dataSource()); // the screen sets that itself
}

} // namespace
