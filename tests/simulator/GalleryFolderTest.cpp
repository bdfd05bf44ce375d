#include "simulator/pictures/GalleryFolder.h"

#include "platform/foundation/FileReading.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace {

class GalleryFolderTest : public testing::Test {
protected:
    /// A whole gallery; whether all of it could be written.
    bool makeGallery(const std::vector<std::string>& names, Overwriting overwriting = Overwriting::own) const {
        GalleryFolder gallery(folder.path(), overwriting);
        bool isWhole = !gallery.save(Bitmap(1, 1), "gallery.png");
        for (const std::string& name : names) {
            gallery.show(name, "");
            isWhole = !gallery.save(Bitmap(1, 1), name) && isWhole;
        }
        return !gallery.savePage() && isWhole;
    }
    [[nodiscard]] bool has(const std::string& name) const { return std::filesystem::exists(folder.path() / name); }

    support::TemporaryFolder outer;
    support::TemporaryFolder folder;
};

TEST_F(GalleryFolderTest, LeavesFilesOfOthersAloneUnlessForced) {
    for (const std::string name : {"a.png", "gallery.png", "index.html"}) {
        folder.write(name, "somebody's");
        EXPECT_TRUE(GalleryFolder(folder.path(), Overwriting::own).refusal(name)) << name;
        EXPECT_FALSE(makeGallery({"a.png"})) << name;
        EXPECT_EQ(readWholeFile(folder.path() / name).value(), "somebody's");
        EXPECT_TRUE(makeGallery({"a.png"}, Overwriting::everything));
        EXPECT_TRUE(makeGallery({"a.png"})) << "now it is its own";
        for (const auto& file : std::filesystem::directory_iterator(folder.path())) {
            std::filesystem::remove(file);
        }
    }
}

TEST_F(GalleryFolderTest, RemovesThePicturesThatOnlyItsEarlierPageShows) {
    const std::filesystem::path outside = outer.write("up.png", "somebody's");
    folder.write("c.png", "somebody's");
    GalleryFolder editedByHand(folder.path(), Overwriting::own);
    editedByHand.show("../" + outer.path().filename().string() + "/up.png", "");
    EXPECT_FALSE(editedByHand.savePage());
    EXPECT_TRUE(makeGallery({"a.png", "b.png"}) && has("b.png"));
    EXPECT_TRUE(makeGallery({"a.png"}));
    EXPECT_TRUE(has("a.png") && has("gallery.png") && !has("b.png"));
    EXPECT_TRUE(has("c.png") && std::filesystem::exists(outside));
}

TEST_F(GalleryFolderTest, NamesFilesInSmallLettersAndDigits) {
    EXPECT_EQ(fileNameOf("Adult (18+)"), "adult-18");
    EXPECT_EQ(fileNameOf("Dropdown open"), "dropdown-open");
}

} // namespace
