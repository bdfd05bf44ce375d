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

TEST_F(GalleryFolderTest, NamesFilesInSmallLettersAndDigits) {
    EXPECT_EQ(fileNameOf("Adult (18+)"), "adult-18");
    EXPECT_EQ(fileNameOf("Dropdown open"), "dropdown-open");
}

} // namespace
