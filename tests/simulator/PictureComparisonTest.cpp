#include "simulator/pictures/PictureComparison.h"

#include "platform/graphics/PNG.h"
#include "simulator/pictures/PictureFile.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace {

using testing::AllOf;
using testing::HasSubstr;

constexpr std::uint32_t grey = 0xFF808080;

Bitmap plain(int width, int height) {
    Bitmap bitmap(width, height);
    for (int y = 0; y < height; ++y) {
        std::fill_n(bitmap.row(y), width, grey);
    }
    return bitmap;
}

class PictureComparisonTest : public testing::Test {
protected:
    /// What is wrong with a picture that is compared with the golden one.
    [[nodiscard]] std::string complaint(const Bitmap& actual) const {
        const std::optional<Failure> failure =
            compareWithGolden(actual, golden, "screen", {folder.path() / "differences", false});
        return failure ? failure->what : "";
    }
    [[nodiscard]] bool left(const std::string& kind) const {
        return std::filesystem::exists(folder.path() / "differences" / ("screen." + kind + ".png"));
    }

    support::TemporaryFolder folder;
    std::filesystem::path golden = folder.path() / "golden" / "screen.png";
};

TEST_F(PictureComparisonTest, ADifferenceIsNamedCountedAndLeftAsPictures) {
    ASSERT_FALSE(savePicture(plain(4, 5), golden));
    Bitmap actual = plain(4, 5);
    actual.row(1)[2] = 0xFF808081; // by as little as can be
    actual.row(3)[0] = 0xFFFFFFFF;
    EXPECT_THAT(complaint(actual), HasSubstr("(2, 1), 2 differ in all, 10.0000 %"));
    EXPECT_TRUE(left("expected") && left("actual") && left("diff"));
    const Result<Bitmap> difference = readPNG((folder.path() / "differences" / "screen.diff.png").string());
    ASSERT_TRUE(difference);
    EXPECT_EQ(difference.value().pixel(2, 1), difference.value().pixel(0, 3));
    EXPECT_NE(difference.value().pixel(2, 1), difference.value().pixel(0, 0));
}

TEST_F(PictureComparisonTest, SizesThatDifferAndAGoldenThatIsNoPictureAreSaid) {
    ASSERT_FALSE(savePicture(plain(4, 3), golden));
    EXPECT_THAT(complaint(plain(5, 3)),
                AllOf(HasSubstr("5 x 3 pixels, not 4 x 3"), HasSubstr("(4, 0), 3 differ in all")));
    EXPECT_EQ(complaint(plain(4, 3)), "") << "the golden stays";
    folder.write("golden/screen.png", "not a picture");
    EXPECT_THAT(complaint(plain(4, 3)), HasSubstr("cannot read"));
}

} // namespace
