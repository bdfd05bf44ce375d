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
    /// What is wrong with a picture that is compared with the golden one.
    [[nodiscard]] std::string complaint(const Bitmap& actual) const {
        const std::optional<Failure> failure =
            compareWithGolden(actual, golden, "screen", {folder.path() / "differences", false});
        return failure ? failure->what : "";
    }
    [[nodiscard]] Bitmap left(const std::string& kind) const {
        return readPNG((folder.path() / "differences" / ("screen." + kind + ".png")).string()).value();
    }

    support::TemporaryFolder folder;
    std::filesystem::path golden = folder.path() / "golden" / "screen.png";
};

TEST_F(PictureComparisonTest, ADifferenceIsNamedCountedAndLeftAsPictures) {
    ASSERT_FALSE(savePicture(plain(4, 5), golden));
    EXPECT_EQ(complaint(plain(4, 5)), "");
    EXPECT_THAT(complaint(plain(5, 5)),
                AllOf(HasSubstr("5 x 5 pixels, not 4 x 5"), HasSubstr("(4, 0), 5 differ in all")));
    Bitmap actual = plain(4, 5);
    actual.row(1)[2] = 0xFF808081; // by as little as can be
    actual.row(3)[0] = 0xFFFFFFFF;
    EXPECT_THAT(complaint(actual), HasSubstr("(2, 1), 2 differ in all, 10.0000 %"));
    EXPECT_EQ(left("expected"), plain(4, 5)) << "the golden stays";
    EXPECT_EQ(left("actual"), actual);
    EXPECT_EQ(left("diff").pixel(2, 1), left("diff").pixel(0, 3));
    EXPECT_NE(left("diff").pixel(2, 1), left("diff").pixel(0, 0));
    folder.write("golden/screen.png", "not a picture");
    EXPECT_THAT(complaint(plain(4, 5)), HasSubstr("cannot read"));
}

} // namespace
