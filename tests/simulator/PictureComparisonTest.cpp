#include "simulator/pictures/PictureComparison.h"

#include "platform/foundation/FileReading.h"
#include "platform/graphics/PNG.h"
#include "simulator/pictures/PictureFile.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

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
            compareWithGolden(actual, golden, "screen", {folder.path() / "differences"});
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

TEST(PictureFileTest, LeavesTheEarlierFileWholeKeepsLinksAndWritesStreamsAsTheyStand) {
    const support::TemporaryFolder folder;
    const std::filesystem::path file = folder.write("file", "earlier");
    std::filesystem::create_symlink(file, folder.path() / "link");
    EXPECT_FALSE(writeWholeFile("later", folder.path() / "link"));
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path() / "link"));
    EXPECT_EQ(readWholeFile(file).value(), "later");

    const std::filesystem::path pipe = folder.path() / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const int reader = open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
    EXPECT_FALSE(writeWholeFile("through", pipe));
    char bytes[8] = {};
    EXPECT_EQ(read(reader, bytes, sizeof bytes), 7);
    close(reader);
    EXPECT_TRUE(std::filesystem::is_fifo(pipe));

    std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit none{0, limit.rlim_max}; // as on a full disk
    setrlimit(RLIMIT_FSIZE, &none);
    const std::optional<Failure> failure = writeWholeFile("latest", file);
    setrlimit(RLIMIT_FSIZE, &limit);
    EXPECT_THAT(failure.value_or(Failure{}).what, HasSubstr("File too large"));
    EXPECT_EQ(readWholeFile(file).value(), "later");

    std::filesystem::create_directory(folder.path() / "folder");
    EXPECT_TRUE(writeWholeFile("x", folder.path() / "folder"));
    EXPECT_THAT(savePicture(Bitmap(8200, 1), folder.path() / "wide.png")->what, HasSubstr("at most 8192 a side"));
    std::size_t entries = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
        entries += entry.exists() ? 1 : 0;
    }
    EXPECT_EQ(entries, 4u) << "nothing half written is left";
}

} // namespace
