#include "simulator/pictures/ScreenPicture.h"

#include "tests/simulator/ConversationFixture.h"

namespace {

using namespace std::chrono_literals;

class ScreenPictureTest : public ConversationTest {
protected:
    ScreenPictureTest() {
        host->activate(nullptr);
        host->advance(600ms);
    }
};

TEST_F(ScreenPictureTest, ShowsTheWholeDeviceOrTheExtensionAlone) {
    const CGRect frame = host->device().expandedFrame();
    EXPECT_EQ(takePicture(*host, PictureExtent::screen).height(), 852 * 3);
    EXPECT_EQ(takePicture(*host, PictureExtent::extension).height(), static_cast<int>(frame.size.height) * 3);
}

TEST_F(ScreenPictureTest, PutsTheExtensionIntoItsPlace) {
    const Bitmap whole = takePicture(*host, PictureExtent::screen, 1);
    const Bitmap bare = takePicture(*host, PictureExtent::extension, 1);
    const int top = static_cast<int>(host->device().expandedFrame().minY());
    for (int y = 0; y < bare.height() - 40; ++y) { // above the home indicator
        ASSERT_TRUE(std::equal(bare.row(y), bare.row(y) + bare.width(), whole.row(top + y))) << "row " << y;
    }
}

} // namespace
