#include "ui/ModeTblCell.h"
#include "tests/ui/Catalog.h"

#include <gtest/gtest.h>

namespace {

/// A cell with its outlets connected, in front of a catalogue. The named text colours are looked up once per process,
/// so every test here needs a process of its own, as it has under ctest.
class ModeTblCellTest : public testing::Test {
protected:
    ModeTblCellTest() {
        catalog->addImage("icon_rose");
        catalog->addImage("list_arrow");
        cell->iconImageView = icon;
        cell->lblTitle = title;
        cell->lblDesc = subtitle;
        cell->imgSelection = arrow;
        cell->viewBackground = background;
    }

    const std::shared_ptr<support::Catalog> catalog = support::installCatalog();
    const std::shared_ptr<ModeTblCell> cell = std::make_shared<ModeTblCell>(UITableViewCellStyle::standard, "");
    const std::shared_ptr<UIImageView> icon = std::make_shared<UIImageView>();
    const std::shared_ptr<UILabel> title = std::make_shared<UILabel>();
    const std::shared_ptr<UILabel> subtitle = std::make_shared<UILabel>();
    const std::shared_ptr<UIImageView> arrow = std::make_shared<UIImageView>();
    const std::shared_ptr<UIView> background = std::make_shared<UIView>();
    const ModeItem highlighted{"icon_rose", "T", "U", true};
    const ModeItem plain{std::nullopt, "V", "", false};
};

} // namespace

TEST_F(ModeTblCellTest, ShowsNothingOfTheItemBefore) {
    catalog->colors["TextColor"] = UIColor::colorWithRedGreenBlueAlpha(0.1, 0, 0, 1);
    catalog->colors["TextGrey"] = UIColor::colorWithRedGreenBlueAlpha(0.2, 0, 0, 1);
    for (int time = 0; time < 2; ++time) {
        cell->configure(highlighted);
        EXPECT_EQ(icon->image(), catalog->images["icon_rose"]);
        EXPECT_EQ(title->text(), "T");
        EXPECT_EQ(subtitle->text(), "U");
        EXPECT_EQ(arrow->image(), catalog->images["list_arrow"]);
        EXPECT_EQ(background->backgroundColor()->components(), support::rgb(77, 162, 137));
        EXPECT_TRUE(*title->textColor() == *UIColor::whiteColor());
        EXPECT_TRUE(*subtitle->textColor() == *UIColor::whiteColor());

        cell->configure(plain);
        EXPECT_EQ(icon->image(), nullptr);
        EXPECT_EQ(title->text(), "V");
        EXPECT_EQ(subtitle->text(), "");
        EXPECT_TRUE(*background->backgroundColor() == *UIColor::whiteColor());
        EXPECT_EQ(title->textColor(), catalog->colors["TextColor"]);
        EXPECT_EQ(subtitle->textColor(), catalog->colors["TextGrey"]);
    }
}
