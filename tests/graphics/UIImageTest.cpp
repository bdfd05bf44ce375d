#include "platform/graphics/UIImage.h"

#include "platform/graphics/cairo/CairoCanvas.h"
#include "platform/graphics/cairo/ScaledImages.h"
#include "tests/graphics/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace {

constexpr std::uint32_t red = 0xFFFF0000;
constexpr std::uint32_t green = 0xFF00FF00;

/// The pixel in the middle of a 10 x 10 point screen that `image` fills.
std::uint32_t drawn(const UIImage& image, CGFloat scale, std::optional<RGBA> tint = std::nullopt) {
    Bitmap bitmap(static_cast<int>(10 * scale), static_cast<int>(10 * scale));
    CairoCanvas canvas(bitmap, scale);
    canvas.drawImage(image, CGRectMake(0, 0, 10, 10), tint);
    return bitmap.pixel(bitmap.width() / 2, bitmap.height() / 2);
}

TEST(UIImageTest, TheSizeIsInPointsOfTheFilesScale) {
    const TemporaryFolder folder;
    const UIImage image("a", {{folder.writePicture("a@3x.png", 60, 30, red), 3}});
    EXPECT_EQ(image.size(), (CGSize{20, 10}));
    EXPECT_EQ(image.scale(), 3);
}

TEST(UIImageTest, EachScreenGetsTheFileMadeForIt) {
    const TemporaryFolder folder;
    const UIImage image(
        "a", {{folder.writePicture("a@2x.png", 20, 20, green), 2}, {folder.writePicture("a.png", 10, 10, red), 1}});
    EXPECT_EQ(drawn(image, 1), red);
    EXPECT_EQ(drawn(image, 2), green);
    EXPECT_EQ(drawn(image, 3), green);
}

TEST(UIImageTest, ATintKeepsOnlyTheCoverage) {
    const TemporaryFolder folder;
    const UIImage image("a", {{folder.writePicture("a.png", 10, 10, red), 1}});
    EXPECT_EQ(drawn(image, 1, RGBA{0, 1, 0, 1}), green);
    EXPECT_EQ(image.imageWithRenderingMode(UIImageRenderingMode::alwaysTemplate)->renderingMode(),
              UIImageRenderingMode::alwaysTemplate);
}

TEST(UIImageTest, BrokenAndMissingFilesHaveNoSizeAndDrawNothing) {
    const TemporaryFolder folder;
    const std::string good = folder.writePicture("good.png", 64, 64, red);
    std::string bytes(std::filesystem::file_size(good), '\0');
    std::ifstream(good, std::ios::binary).read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    std::string huge = bytes;
    huge.replace(16, 4, "\x7F\xFF\xFF\xFF");

    for (const std::string& path :
         {folder.path("missing.png"), folder.writeText("empty.png", ""), folder.writeText("text.png", "not a picture"),
          folder.writeText("huge.png", huge), folder.path("")}) {
        const UIImage image("a", {{path, 1}});
        EXPECT_EQ(image.size(), CGSize{}) << path;
        EXPECT_EQ(drawn(image, 1), 0U) << path;
    }
    const UIImage cut("a", {{folder.writeText("cut.png", bytes.substr(0, bytes.size() / 2)), 1}});
    EXPECT_EQ(drawn(cut, 1), 0U);
    EXPECT_EQ(drawn(UIImage("a", {}), 1), 0U);
}

TEST(UIImageTest, AThousandDistinctImagesStayWithinTheCache) {
    const TemporaryFolder folder;
    const std::string path = folder.writePicture("a.png", 8, 8, red);
    for (int side = 1; side <= 1000; ++side) {
        const auto image = ScaledImages::shared().find(path, side, 200);
        ASSERT_NE(image, nullptr);
        ASSERT_LE(ScaledImages::shared().bytes(), ScaledImages::capacity);
    }
    EXPECT_GT(ScaledImages::shared().bytes(), ScaledImages::capacity / 2);
}

} // namespace
