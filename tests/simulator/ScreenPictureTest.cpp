#include "simulator/pictures/ScreenPicture.h"

#include "tests/simulator/ConversationFixture.h"

namespace {

using namespace std::chrono_literals;

using Style = MSMessagesAppPresentationStyle;

class ScreenPictureTest : public ConversationTest {
protected:
    ScreenPictureTest() {
        host->activate(nullptr);
        host->advance(600ms);
    }

    [[nodiscard]] Bitmap picture(PictureExtent extent) const { return takePicture(*host, extent, 1); }
    /// The share of a region's pixels that two pictures have in common.
    static double sameShare(const Bitmap& one, const Bitmap& other, PixelRect region) {
        int same = 0;
        for (int y = region.y; y < region.y + region.height; ++y) {
            for (int x = region.x; x < region.x + region.width; ++x) {
                same += one.pixel(x, y) == other.pixel(x, y) ? 1 : 0;
            }
        }
        return static_cast<double>(same) / (region.width * region.height);
    }
};

TEST_F(ScreenPictureTest, ShowsTheWholeDeviceOrTheExtensionAlone) {
    const CGRect frame = host->device().expandedFrame();
    EXPECT_EQ(takePicture(*host, PictureExtent::screen).height(), 852 * 3);
    EXPECT_EQ(takePicture(*host, PictureExtent::extension).height(), static_cast<int>(frame.size.height) * 3);
}

TEST_F(ScreenPictureTest, PutsTheExtensionIntoItsPlace) {
    const Bitmap whole = picture(PictureExtent::screen);
    const Bitmap bare = picture(PictureExtent::extension);
    const int top = static_cast<int>(host->device().expandedFrame().minY());
    for (int y = 0; y < bare.height() - 40; ++y) { // above the home indicator
        ASSERT_TRUE(std::equal(bare.row(y), bare.row(y) + bare.width(), whole.row(top + y))) << "row " << y;
    }
}

TEST_F(ScreenPictureTest, ShowsTheConversationAboveACompactExtension) {
    const Bitmap expanded = picture(PictureExtent::screen);
    host->changeStyle(Style::compact);
    const Bitmap compact = picture(PictureExtent::screen);
    const int top = static_cast<int>(host->device().compactFrame().minY());
    EXPECT_LT(sameShare(expanded, compact, {0, 120, 393, top - 130}), 0.5);
    EXPECT_GT(sameShare(expanded, compact, {0, 0, 393, 59}), 0.999) << "the status bar stays";
}

TEST_F(ScreenPictureTest, FollowsTheAppearance) {
    host->changeStyle(Style::compact);
    const Bitmap light = picture(PictureExtent::screen);
    host->window().setUserInterfaceStyle(UIUserInterfaceStyle::dark);
    const Bitmap dark = picture(PictureExtent::screen);
    EXPECT_EQ(light.pixel(2, 300), 0xFFFFFFFFu);
    EXPECT_EQ(dark.pixel(2, 300), 0xFF000000u);
    EXPECT_NE(light.pixel(2, 800), dark.pixel(2, 800)) << "the extension's background";
}

TEST_F(ScreenPictureTest, IsTheSameEveryTime) {
    EXPECT_EQ(picture(PictureExtent::screen), picture(PictureExtent::screen));
}

} // namespace
