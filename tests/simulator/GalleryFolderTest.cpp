#include "simulator/pictures/GalleryFolder.h"

#include "platform/foundation/FileReading.h"
#include "simulator/pictures/GalleryPage.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace {

class GalleryFolderTest : public testing::Test {
protected:
    /// A whole gallery; whether all of it could be written.
    bool makeGallery(const std::vector<std::string>& names, Overwriting overwriting = Overwriting::own) const {
        GalleryFolder gallery(folder.path(), overwriting);
        if (gallery.claim(names)) {
            return false;
        }
        GalleryDevice device{deviceNamed("15").value(), {}, {}};
        for (const std::string& name : names) {
            folder.write(name, "a picture");
            device.sheets.push_back({name, "light", ""});
        }
        return !gallery.savePage(galleryPage({device}));
    }
    [[nodiscard]] bool has(const std::string& name) const { return std::filesystem::exists(folder.path() / name); }

    support::TemporaryFolder outer;
    support::TemporaryFolder folder;
};

TEST_F(GalleryFolderTest, LeavesFilesOfOthersAloneUnlessForced) {
    for (const std::string name : {"a.png", "index.html"}) {
        folder.write(name, "somebody's");
        EXPECT_FALSE(makeGallery({"a.png", "b.png"})) << name;
        EXPECT_EQ(readWholeFile(folder.path() / name).value(), "somebody's");
        EXPECT_FALSE(has("b.png")) << "nothing is written when not all may be";
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
    GalleryDevice editedByHand{deviceNamed("15").value(), {}, {}};
    editedByHand.sheets.push_back({"../" + outer.path().filename().string() + "/up.png", "light", ""});
    EXPECT_FALSE(GalleryFolder(folder.path(), Overwriting::own).savePage(galleryPage({editedByHand})));
    EXPECT_TRUE(makeGallery({"a.png", "b.png"}) && has("b.png"));
    EXPECT_TRUE(makeGallery({"a.png"}));
    EXPECT_TRUE(has("a.png") && !has("b.png"));
    EXPECT_TRUE(has("c.png") && std::filesystem::exists(outside));
}

TEST_F(GalleryFolderTest, TakesBackWhatAGalleryThatFailedHasAdded) {
    EXPECT_TRUE(makeGallery({"a.png"}));
    GalleryFolder failed(folder.path(), Overwriting::own);
    EXPECT_FALSE(failed.claim({"a.png", "b.png"}));
    folder.write("b.png", "a picture");
    failed.withdraw();
    EXPECT_TRUE(has("a.png") && has("index.html") && !has("b.png"));
}

TEST_F(GalleryFolderTest, NamesAFolderThatCannotBe) {
    folder.write("file", "");
    const std::optional<Failure> failure = GalleryFolder(folder.path() / "file" / "in it", Overwriting::own).claim({});
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->what, "cannot write into " + (folder.path() / "file" / "in it").string() + ": Not a directory");
}

TEST_F(GalleryFolderTest, NamesFilesInSmallLettersAndDigits) {
    EXPECT_EQ(fileNameOf("Adult (18+)"), "adult-18");
    EXPECT_EQ(fileNameOf("Dropdown open"), "dropdown-open");
}

} // namespace
