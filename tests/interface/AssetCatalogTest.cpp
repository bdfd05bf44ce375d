#include "platform/graphics/AssetCatalog.h"
#include "platform/graphics/UIColor.h"
#include "platform/graphics/UIImage.h"
#include "tests/interface/InterfaceFixture.h"

#include <map>

namespace {

class Catalogue : public InterfaceFixture {
protected:
    void writeColor(const std::string& name, const std::string& colors) const {
        write("Assets.xcassets/" + name + ".colorset/Contents.json", "{\"colors\":[" + colors + "]}");
    }
    void writeImage(const std::string& name, const std::string& images, const std::string& more = "") const {
        write("Assets.xcassets/" + name + ".imageset/Contents.json", "{\"images\":[" + images + "]" + more + "}");
    }
    static std::string color(const std::string& red, const std::string& more = "") {
        return R"({"idiom":"universal",)" + more + R"("color":{"color-space":"srgb","components":{"red":)" + red +
               R"(,"green":"0.0","blue":"0.0","alpha":"1.000"}}})";
    }
    static double redOf(const std::string& name, UIUserInterfaceStyle style = UIUserInterfaceStyle::light) {
        const auto found = UIColor::colorNamed(name);
        return found ? found->resolved(style).red : -1;
    }
};

TEST_F(Catalogue, ReadsColourComponentsInEveryNotation) {
    for (const auto& [written, red] : std::vector<std::pair<std::string, double>>{
             {"\"0.486\"", 0.486}, {"\"0xE0\"", 224 / 255.0}, {"\"174\"", 174 / 255.0}, {"0.25", 0.25}}) {
        writeColor(std::to_string(red), color(written));
        EXPECT_DOUBLE_EQ(redOf(std::to_string(red)), red);
    }
    writeColor(
        "gray",
        R"({"idiom":"universal","color":{"color-space":"gray-gamma-22","components":{"white":"0.3","alpha":"0.5"}}})");
    EXPECT_EQ(UIColor::colorNamed("gray")->components(), (RGBA{0.3, 0.3, 0.3, 0.5}));
}

TEST_F(Catalogue, GivesTheDarkColourItsAppearanceAndLeavesHighContrastOut) {
    const std::string dark = color("\"0.9\"", R"("appearances":[{"appearance":"luminosity","value":"dark"}],)");
    const std::string highContrast = color("\"0.5\"", R"("appearances":[{"appearance":"contrast","value":"high"}],)");
    writeColor("two", color("\"0.1\"") + "," + dark + "," + highContrast);
    writeColor("one", color("\"0.1\""));
    writeColor("night", dark);
    EXPECT_DOUBLE_EQ(redOf("two"), 0.1);
    EXPECT_DOUBLE_EQ(redOf("two", UIUserInterfaceStyle::dark), 0.9);
    EXPECT_DOUBLE_EQ(redOf("one", UIUserInterfaceStyle::dark), 0.1);
    EXPECT_DOUBLE_EQ(redOf("night"), 0.9);
}

TEST_F(Catalogue, HasNoColourWhereItsFileIsMissingOrBroken) {
    write("Assets.xcassets/cut.colorset/Contents.json", "{\"colors\":[");
    writeColor("word", color("\"red\""));
    writeColor("bare", R"({"idiom":"universal"})");
    write("Assets.xcassets/list.colorset/Contents.json", "[]");
    for (const char* name : {"nothing", "cut", "word", "bare", "list", ""}) {
        EXPECT_FALSE(UIColor::colorNamed(name)) << name;
    }
}

TEST_F(Catalogue, TakesTheRenderedPicturesOfADrawing) {
    writeImage("arrow", R"({"idiom":"universal","filename":"a.svg"})",
               R"(,"properties":{"template-rendering-intent":"template"})");
    const auto arrow = UIImage::imageNamed("arrow");
    ASSERT_TRUE(arrow);
    for (const auto& [scale, file] : std::map<int, std::string>{{1, "a.png"}, {2, "a@2x.png"}, {3, "a@3x.png"}}) {
        EXPECT_EQ(withoutFolder(arrow->fileForScale(scale)->path), "Assets.xcassets/arrow.imageset/" + file);
    }
    EXPECT_EQ(UIImage::imageNamed("arrow"), arrow);
}

TEST_F(Catalogue, ChoosesFilesByIdiomScaleAndAppearance) {
    writeImage("photo", R"({"idiom":"universal","filename":"any.png","scale":"1x"},
        {"idiom":"iphone","scale":"1x"},{"idiom":"iphone","filename":"phone.png","scale":"3x"},
        {"idiom":"iphone","filename":"night.png","scale":"1x","appearances":[{"appearance":"luminosity","value":"dark"}]})");
    const auto photo = UIImage::imageNamed("photo");
    ASSERT_TRUE(photo);
    EXPECT_EQ(withoutFolder(photo->fileForScale(1)->path), "Assets.xcassets/photo.imageset/phone.png");
    EXPECT_EQ(photo->fileForScale(1)->scale, 3);
}

TEST_F(Catalogue, HasNoImageForEmptySlotsAndNamesThatLeadElsewhere) {
    writeImage("empty", R"({"idiom":"universal","scale":"1x"},{"idiom":"universal","scale":"2x"})");
    write("secret.imageset/Contents.json", R"({"images":[{"idiom":"universal","filename":"a.png"}]})");
    for (const std::string& name : {std::string("empty"), std::string("../secret"), std::string("/etc/passwd"),
                                    std::string("a\0b", 3), std::string(5000, 'x')}) {
        EXPECT_FALSE(UIImage::imageNamed(name));
    }
}

TEST_F(Catalogue, LooksIntoGroups) {
    const std::string image = R"({"idiom":"universal","filename":"a.png"})";
    writeImage("Plain/inside", image);
    EXPECT_TRUE(UIImage::imageNamed("inside"));
    EXPECT_FALSE(UIImage::imageNamed("Plain/inside"));
}

} // namespace
