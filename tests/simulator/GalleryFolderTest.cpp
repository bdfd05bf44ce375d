#include "simulator/pictures/GalleryFolder.h"

#include "platform/foundation/FileReading.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace {

class GalleryFolderTest : public testing::Test {
protected:
    /// A whole gallery of one picture; whether all of it could be written.
    bool makeGallery(Overwriting overwriting = Overwriting::own) const {
        GalleryFolder gallery(folder.path(), overwriting);
        gallery.show("a.png", "A");
        return !gallery.save(Bitmap(1, 1), "a.png") && !gallery.save(Bitmap(1, 1), "gallery.png") &&
               !gallery.savePage();
    }

    support::TemporaryFolder folder;
};

TEST_F(GalleryFolderTest, LeavesFilesOfOthersAloneUnlessForced) {
    for (const std::string name : {"a.png", "gallery.png", "index.html"}) {
        const support::TemporaryFolder other;
        const std::filesystem::path file = other.write(name, "somebody's");
        EXPECT_TRUE(GalleryFolder(other.path(), Overwriting::own).refusal(name).has_value()) << name;
        EXPECT_FALSE(GalleryFolder(other.path(), Overwriting::everything).refusal(name).has_value()) << name;
    }
    folder.write("a.png", "somebody's");
    EXPECT_FALSE(makeGallery());
    EXPECT_EQ(readWholeFile(folder.path() / "a.png").value(), "somebody's");
    EXPECT_TRUE(makeGallery(Overwriting::everything));
    EXPECT_TRUE(makeGallery()) << "now it is its own";
}

TEST_F(GalleryFolderTest, RemovesThePicturesThatOnlyItsEarlierPageShows) {
    const std::filesystem::path outside = folder.write("up.png", "somebody's");
    GalleryFolder earlier(folder.path() / "deep", Overwriting::own);
    for (const std::string name : {"a.png", "b.png"}) {
        EXPECT_FALSE(earlier.save(Bitmap(1, 1), name)) << name;
        earlier.show(name, "");
    }
    earlier.show("../up.png", "as if edited by hand");
    EXPECT_FALSE(earlier.savePage());
    const std::filesystem::path foreign = folder.write("deep/c.png", "somebody's");
    GalleryFolder smaller(folder.path() / "deep", Overwriting::own);
    EXPECT_FALSE(smaller.save(Bitmap(1, 1), "a.png"));
    smaller.show("a.png", "");
    EXPECT_FALSE(smaller.savePage());
    EXPECT_TRUE(std::filesystem::exists(folder.path() / "deep" / "a.png"));
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "deep" / "b.png"));
    EXPECT_TRUE(std::filesystem::exists(foreign));
    EXPECT_TRUE(std::filesystem::exists(outside));
}

TEST_F(GalleryFolderTest, NamesFilesInSmallLettersAndDigits) {
    EXPECT_EQ(fileNameOf("Adult (18+)"), "adult-18");
    EXPECT_EQ(fileNameOf("Dropdown open"), "dropdown-open");
}

} // namespace
