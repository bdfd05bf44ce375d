#include "simulator/pictures/PictureComparison.h"

#include "platform/graphics/PNG.h"
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
    [[nodiscard]] Golden golden(bool update = false) const {
        return {folder.path() / "golden" / "screen.png", folder.path() / "differences", "screen", update};
    }
    void keepAsGolden(const Bitmap& picture) const {
        ASSERT_FALSE(compareWithGolden(picture, golden(true)).has_value());
    }
    [[nodiscard]] bool left(const std::string& kind) const {
        return std::filesystem::exists(folder.path() / "differences" / ("screen." + kind + ".png"));
    }

    support::TemporaryFolder folder;
};

TEST_F(PictureComparisonTest, AMissingGoldenIsRecordedAndFails) {
    const std::optional<Failure> failure = compareWithGolden(plain(4, 3), golden());
    ASSERT_TRUE(failure.has_value());
    EXPECT_THAT(failure->what, AllOf(HasSubstr(golden().file.string()), HasSubstr("recorded")));
    EXPECT_FALSE(compareWithGolden(plain(4, 3), golden()).has_value());
    EXPECT_FALSE(left("actual"));
}

TEST_F(PictureComparisonTest, ADifferenceIsNamedCountedAndLeftAsPictures) {
    keepAsGolden(plain(4, 5));
    Bitmap actual = plain(4, 5);
    actual.row(1)[2] = 0xFF808081; // by as little as can be
    actual.row(3)[0] = 0xFFFFFFFF;
    const std::optional<Failure> failure = compareWithGolden(actual, golden());
    ASSERT_TRUE(failure.has_value());
    EXPECT_THAT(failure->what, HasSubstr("(2, 1), 2 differ in all, 10.0000 %"));
    EXPECT_TRUE(left("expected") && left("actual") && left("diff"));
    const PNGReading difference = readPNG((folder.path() / "differences" / "screen.diff.png").string());
    ASSERT_TRUE(difference.bitmap.has_value());
    EXPECT_EQ(difference.bitmap->pixel(2, 1), difference.bitmap->pixel(0, 3));
    EXPECT_NE(difference.bitmap->pixel(2, 1), difference.bitmap->pixel(0, 0));
}

TEST_F(PictureComparisonTest, SizesThatDifferAreSaid) {
    keepAsGolden(plain(4, 3));
    const std::optional<Failure> failure = compareWithGolden(plain(5, 3), golden());
    ASSERT_TRUE(failure.has_value());
    EXPECT_THAT(failure->what, AllOf(HasSubstr("5 x 3 pixels, not 4 x 3"), HasSubstr("(4, 0), 3 differ in all")));
    EXPECT_FALSE(compareWithGolden(plain(4, 3), golden()).has_value()) << "the golden stays";
}

TEST_F(PictureComparisonTest, AGoldenThatIsNoPictureIsSaid) {
    folder.write("golden/screen.png", "not a picture");
    const std::optional<Failure> failure = compareWithGolden(plain(4, 3), golden());
    ASSERT_TRUE(failure.has_value());
    EXPECT_THAT(failure->what, HasSubstr("cannot read"));
}

} // namespace
