#include "platform/graphics/ImageDecoder.h"

#include "tests/graphics/PictureFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

constexpr std::uint32_t red = 0xFFFF0000;
constexpr std::uint32_t blue = 0xFF0000FF;

std::uint32_t colorTaken(ImageDecoder& decoder, const std::string& path) {
    return decoder.take(path).value().pixel(0, 0);
}

TEST(ImageDecoderTest, EveryFileOfManyComesOutWhetherBegunOrNot) {
    const PictureFolder folder;
    ImageDecoder decoder;
    std::vector<std::string> paths;
    for (std::uint32_t i = 0; i < 50; ++i) {
        paths.push_back(folder.writePicture(std::to_string(i) + ".png", 40, 40, 0xFF000000U + i));
    }
    for (std::size_t i = 0; i < 45; ++i) {
        decoder.begin(paths[i]);
    }
    for (std::uint32_t i = 0; i < 50; ++i) {
        EXPECT_EQ(colorTaken(decoder, paths[i]), 0xFF000000U + i);
    }
}

TEST(ImageDecoderTest, AFileThatWasTakenIsReadAnew) {
    const PictureFolder folder;
    ImageDecoder decoder;
    const std::string path = folder.writePicture("a.png", 2, 2, red);
    decoder.begin(path);
    EXPECT_EQ(colorTaken(decoder, path), red);
    (void)folder.writePicture("a.png", 2, 2, blue);
    decoder.begin(path);
    EXPECT_EQ(colorTaken(decoder, path), blue);
}

TEST(ImageDecoderTest, MayEndBeforeItsWork) {
    const PictureFolder folder;
    ImageDecoder decoder;
    for (int i = 0; i < 20; ++i) {
        decoder.begin(folder.writePicture(std::to_string(i) + ".png", 250, 250, red));
    }
}

} // namespace
