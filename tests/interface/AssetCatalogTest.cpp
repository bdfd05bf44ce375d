#include "platform/graphics/UIColor.h"
#include "platform/graphics/UIImage.h"
#include "platform/uikit/window/UIScreen.h"
#include "tests/support/InterfaceBundle.h"

#include <map>

namespace {

class Catalogue : public support::InterfaceBundle {
protected:
    void writeSet(const std::string& name, const std::string& contents) const {
        write("Assets.xcassets/" + name + "/Contents.json", contents);
    }
    void writeImage(const std::string& name, const std::string& images, const std::string& more = "") const {
        writeSet(name + ".imageset", "{\"images\":[" + images + "]" + more + "}");
    }
    static std::string color(const std::string& red, const std::string& more = "") {
        return R"({"idiom":"universal",)" + more + R"("color":{"color-space":"srgb","components":{"red":)" + red +
               R"(,"green":"0.0","blue":"0.0","alpha":"1.000"}}})";
    }
    static std::string colors(const std::string& entries) { return "{\"colors\":[" + entries + "]}"; }
};

TEST_F(Catalogue, ReadsColoursInEveryNotationAndAppearance) {
    const std::string dark = color("\"0.9\"", R"("appearances":[{"appearance":"luminosity","value":"dark"}],)");
    const std::string highContrast = color("\"0.5\"", R"("appearances":[{"appearance":"contrast","value":"high"}],)");
    struct Case {
        std::string contents;
        std::optional<double> light; // none: no such colour
        std::optional<double> dark = light;
    };
    const std::vector<Case> cases{
        {colors(color("\"0.486\"")), 0.486},
        {colors(color("\"0xE0\"")), 224 / 255.0},
        {colors(color("\"174\"")), 174 / 255.0},
        {colors(color("0.25")), 0.25},
        {colors(R"({"idiom":"universal","color":{"components":{"white":"0.3","alpha":"0.5"}}})"), 0.3},
        {colors(color("\"0.1\"") + "," + dark + "," + highContrast), 0.1, 0.9},
        {colors(dark), 0.9},
        {colors(color("\"red\"")), std::nullopt},
        {colors(R"({"idiom":"universal"})"), std::nullopt},
        {"{\"colors\":[", std::nullopt},
        {"[]", std::nullopt}};
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const std::string name = "c" + std::to_string(i);
        writeSet(name + ".colorset", cases[i].contents);
        const auto found = UIColor::colorNamed(name);
        const auto red = [&](UIUserInterfaceStyle style) {
            return found ? std::optional(found->resolved(style).red) : std::nullopt;
        };
        EXPECT_EQ(red(UIUserInterfaceStyle::light), cases[i].light) << cases[i].contents;
        EXPECT_EQ(red(UIUserInterfaceStyle::dark), cases[i].dark) << cases[i].contents;
    }
    EXPECT_FALSE(UIColor::colorNamed("nothing"));
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
    UIScreen::mainScreen().setUserInterfaceLayoutDirection(UIUserInterfaceLayoutDirection::rightToLeft);
    writeImage("back", R"({"idiom":"universal","filename":"a.png","language-direction":"left-to-right"},
        {"idiom":"universal","filename":"b.png","language-direction":"right-to-left"})");
    EXPECT_EQ(withoutFolder(UIImage::imageNamed("back")->fileForScale(1)->path), "Assets.xcassets/back.imageset/b.png");
}

TEST_F(Catalogue, HasNoImageForEmptySlotsAndNamesThatLeadElsewhereAndLooksIntoGroups) {
    const std::string image = R"({"idiom":"universal","filename":"a.png"})";
    writeImage("empty", R"({"idiom":"universal","scale":"1x"},{"idiom":"universal","scale":"2x"})");
    writeImage("../secret", image);
    writeImage("Plain/inside", image);
    for (const std::string& name : {std::string("empty"), std::string("../secret"), std::string("/etc/passwd"),
                                    std::string("a\0b", 3), std::string(5000, 'x'), std::string("Plain/inside")}) {
        EXPECT_FALSE(UIImage::imageNamed(name));
    }
    EXPECT_TRUE(UIImage::imageNamed("inside"));
}

} // namespace
