#include "platform/graphics/UIImage.h"

#include "platform/foundation/FileReading.h"
#include "platform/graphics/cairo/CairoCanvas.h"
#include "tests/graphics/PictureFolder.h"

#include <gtest/gtest.h>

using namespace std::string_literals;

namespace {

constexpr std::uint32_t red = 0xFFFF0000;
constexpr std::uint32_t green = 0xFF00FF00;

/// The pixel in the middle of a 10 x 10 point screen that `image` fills.
std::uint32_t drawn(const UIImage& image, CGFloat scale) {
    Bitmap bitmap(static_cast<int>(10 * scale), static_cast<int>(10 * scale));
    CairoCanvas canvas(bitmap, scale);
    canvas.drawImage(image, CGRectMake(0, 0, 10, 10));
    return bitmap.pixel(bitmap.width() / 2, bitmap.height() / 2);
}

TEST(UIImageTest, EachScreenGetsTheFileMadeForIt) {
    const PictureFolder folder;
    const UIImage image(
        "a", {{folder.writePicture("a@2x.png", 20, 20, green), 2}, {folder.writePicture("a.png", 10, 10, red), 1}});
    EXPECT_EQ(drawn(image, 1), red);
    EXPECT_EQ(drawn(image, 2), green);
    EXPECT_EQ(drawn(image, 3), green);
    EXPECT_EQ(image.size(), (CGSize{10, 10})) << "in points";
}

TEST(UIImageTest, OnlyThePicturesDrawnLastAreKept) {
    const PictureFolder folder;
    const std::string redFile = readWholeFile(folder.writePicture("red.png", 132, 132, red)).value();
    const std::string greenFile = readWholeFile(folder.writePicture("green.png", 132, 132, green)).value();
    const auto icon = [&](int i) { return UIImage("icon", {{folder.path() / (std::to_string(i) + ".png"), 3}}); };
    for (int i = 0; i < 1000; ++i) { // 70 MB; each file changes after it was drawn
        (void)folder.write(std::to_string(i) + ".png", redFile);
        EXPECT_EQ(drawn(icon(i), 13.2), red);
        (void)folder.write(std::to_string(i) + ".png", greenFile);
        ASSERT_EQ(drawn(icon(0), 13.2), red) << "is drawn all the time";
    }
    EXPECT_EQ(drawn(icon(999), 13.2), red);
    EXPECT_EQ(drawn(icon(700), 13.2), red);
    EXPECT_EQ(drawn(icon(600), 13.2), green);
}

TEST(UIImageTest, BrokenAndMissingFilesHaveNoSizeAndDrawNothing) {
    const PictureFolder folder;
    const std::string bytes = readWholeFile(folder.writePicture("good.png", 64, 64, red)).value();
    std::string huge = bytes;
    huge.replace(16, 4, "\x7F\xFF\xFF\xFF");
    for (const std::string& broken : {""s, "not a picture"s, huge}) {
        const UIImage image("a", {{folder.write("broken.png", broken), 1}});
        EXPECT_EQ(image.size(), CGSize{}) << broken;
        EXPECT_EQ(drawn(image, 1), 0U) << broken;
    }
    const std::string cut = folder.write("cut.png", bytes.substr(0, bytes.size() / 2));
    for (const std::string& path : {cut, (folder.path() / "missing.png").string(), folder.path().string()}) {
        EXPECT_EQ(drawn(UIImage("a", {{path, 1}}), 1), 0U) << path;
    }
    EXPECT_EQ(drawn(UIImage("a", {}), 1), 0U);
}

} // namespace
