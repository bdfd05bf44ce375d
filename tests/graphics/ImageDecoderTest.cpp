#include "platform/graphics/ImageDecoder.h"

#include "tests/graphics/PictureFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

TEST(ImageDecoderTest, EveryFileOfManyComesOutWhetherBegunOrNotAndAnewOnceItWasTaken) {
    const PictureFolder folder;
    ImageDecoder decoder;
    for (const std::uint32_t firstColor : {0xFF000000U, 0xFF00FF00U}) {
        std::vector<std::string> paths;
        for (std::uint32_t i = 0; i < 50; ++i) {
            paths.push_back(folder.writePicture(std::to_string(i) + ".png", 40, 40, firstColor + i));
        }
        std::for_each_n(paths.begin(), 45, [&](const std::string& path) { decoder.begin(path); });
        for (std::uint32_t i = 0; i < 50; ++i) {
            EXPECT_EQ(decoder.take(paths[i]).value().pixel(0, 0), firstColor + i);
        }
    }
    for (int i = 0; i < 20; ++i) { // and it may end before its work
        decoder.begin(folder.writePicture(std::to_string(i) + ".png", 250, 250, 0xFF000000U));
    }
}

} // namespace
