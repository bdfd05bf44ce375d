#include "simulator/check/InterfaceCheck.h"

#include "tests/support/InterfaceBundle.h"
#include "ui/UiClasses.h"

#include <gmock/gmock.h>

namespace {

class InterfaceCheck : public support::InterfaceBundle {
protected:
    InterfaceCheck() { write("Assets.xcassets/Contents.json", "{}"); }

    [[nodiscard]] std::string findings() const {
        std::string text;
        for (const Finding& finding : checkInterface(bundle()).all) {
            text += finding.describe() + "\n";
        }
        return withoutFolder(text);
    }
};

TEST_F(InterfaceCheck, GoesThroughEveryDocument) {
    write("A.xib", "<document");
    write("B.xib", nibWith("<label id=\"l\" numberOfLines=\"many\"/><label id=\"l\"/>"));
    write("C.storyboard", storyboardWith("", R"(<scene><objects>
<viewController id="c" sceneMemberID="viewController"><view key="view"><subviews><lable/></subviews></view>
<connections><segue destination="c" kind="show" id="s"/></connections></viewController></objects></scene>)"));
    EXPECT_EQ(findings(),
              "A.xib:1:1: error: the > of this tag is missing [interface.unreadable]\n"
              "B.xib:3:1: error: <label id=\"l\">: numberOfLines is \"many\", a number is expected "
              "[interface.refused]\n"
              "B.xib:3:37: error: <label id=\"l\">: the <label> in line 3 has the id \"l\", too "
              "[interface.double-id]\n"
              "C.storyboard:4:82: error: <lable>: there are no objects of this kind here; did you mean label? "
              "[interface.refused]\n"
              "C.storyboard:5:14: warning: <segue id=\"s\">: segues are ignored [interface.ignored]\n");
}

TEST_F(InterfaceCheck, WarnsOfNamesThatTheCatalogueLacks) {
    write("A.xib",
          nibWith("<imageView id=\"i\" image=\"leaf\"><color key=\"backgroundColor\" name=\"Green\"/></imageView>\n"
                  "<imageView image=\"star\" catalog=\"system\"/>"));
    EXPECT_EQ(findings(),
              "A.xib:3:1: warning: <imageView id=\"i\">: the catalogue has no image \"leaf\" [interface.image]\n"
              "A.xib:3:32: warning: <color>: the catalogue has no colour \"Green\" [interface.color]\n");
    std::filesystem::remove_all(folder() / "Assets.xcassets");
    EXPECT_EQ(findings(),
              "Assets.xcassets: warning: there is no catalogue, so that no image and no named colour is shown "
              "[catalog.set]\n");
}

TEST_F(InterfaceCheck, FindsBrokenSetsAndMissingFilesInTheCatalogue) {
    write("Assets.xcassets/1.colorset/Contents.json", "{\n'colors': []}");
    write("Assets.xcassets/2.colorset/Contents.json", "{\n\"colours\": []}");
    write("Assets.xcassets/3.imageset/Contents.json", "{\"images\":[{\"idiom\":\"ipad\",\"filename\":\"b.png\"}]}");
    write("Assets.xcassets/a.colorset/Contents.json",
          "{\"colors\":[\n{\"idiom\":\"universal\",\"color\":{\"components\":"
          "{\"red\":\"x\",\"green\":\"0\",\"blue\":\"0\"}}}]}");
    write("Assets.xcassets/b.imageset/Contents.json",
          "{\"images\":[\n{\"idiom\":\"universal\",\"filename\":\"b.png\"}]}");
    write("Assets.xcassets/c.imageset/c.svg", "<svg/>");
    write("Assets.xcassets/c.imageset/c.png", "");
    write("Assets.xcassets/c.imageset/Contents.json",
          "{\"images\":[{\"idiom\":\"universal\",\"filename\":\"c.svg\"}]}");
    write("Assets.xcassets/e.imageset/e.png", "\x89PNG\r\n\x1A\n");
    write("Assets.xcassets/e.imageset/Contents.json",
          "{\"images\":[{\"idiom\":\"universal\",\"scale\":\"4x\",\"filename\":\"e.png\"}]}");
    std::filesystem::create_directory_symlink("..", folder() / "Assets.xcassets/round");
    write(
        "A.xib",
        nibWith("<imageView image=\"3\"><color key=\"backgroundColor\" name=\"a\"/></imageView>")); // told of the sets
    write("Assets.xcassets/d.dataset/Contents.json", "never read");
    EXPECT_EQ(
        findings(),
        "Assets.xcassets/round: warning: this link leads to a folder that is read already, or in a circle "
        "[catalog.set]\n"
        "Assets.xcassets/1.colorset/Contents.json:2:1: warning: write the straight quotes \" around a text, not ' "
        "[catalog.set]\n"
        "Assets.xcassets/2.colorset/Contents.json:2:1: warning: \"colours\" is no key of a set; did you mean "
        "\"colors\"? [catalog.set]\n"
        "Assets.xcassets/3.imageset/Contents.json:1:1: warning: the set has no file for this phone [catalog.file]\n"
        "Assets.xcassets/a.colorset/Contents.json:2:51: warning: the component \"red\" is no number [catalog.set]\n"
        "Assets.xcassets/b.imageset/Contents.json:2:33: warning: the file Assets.xcassets/b.imageset/b.png is "
        "missing [catalog.file]\n"
        "Assets.xcassets/c.imageset/Contents.json:1:44: warning: the file Assets.xcassets/c.imageset/c.png "
        "cannot be drawn: it is empty, and 2 more of this set [catalog.file]\n"
        "Assets.xcassets/e.imageset/Contents.json:1:41: warning: the scale \"4x\" is none of 1x, 2x, 3x "
        "[catalog.scale]\n"
        "Assets.xcassets/e.imageset/Contents.json:1:57: warning: the file Assets.xcassets/e.imageset/e.png cannot be "
        "drawn: the end of the picture is missing [catalog.file]\n");
}

/// One nib with one fault each, and what is told of it beside its line.
TEST_F(InterfaceCheck, CrossesADocumentWithWhatTheCodeNeeds) {
    registerUiClasses();
    const struct {
        const char* objects;
        const char* finding;
    } faults[] = {
        {R"(<tableViewCell id="c" customClass="ModeTblCell" reuseIdentifier="Cell"/>)",
         "is another than the class ModeTblCell"},
        {R"(<view id="v" customClass="ModeHeaderView"/>)",
         "the outlet \"lblHeaderTitle\" of ModeHeaderView is not connected"},
        {R"(<view id="v"><contraints/></view>)", "did you mean \"constraints\"?"},
        {R"(<label id="l" numberOfLine="0"/>)", "did you mean \"numberOfLines\"?"},
        {R"(<label id="l" text="Truths & Dares"/>)", "write &amp; for the character & [interface.ampersand]"},
        {R"(<label id="l" text="a" text="b"/>)", "the attribute \"text\" stands here twice [interface.refused]"},
        {R"(<view id="v"><subviews><slider/><slider/><slider/><slider/><slider/></subviews></view>)",
         "here (and 4 times more: lines 3, 3, 3 …) [interface.refused]"},
        {R"(<placeholder placeholderIdentifier="IBFilesOwner" id="-1" customClass="Own"><connections><outlet
 property="view" destination="v" id="o"/></connections></placeholder>)",
         "there is no class \"Own\", so that its connections are not checked [interface.ignored]"},
        {R"(<placeholder placeholderIdentifier="IBFilesOwner" id="-1" customClass="ModeHeaderView"><connections><outlet
 property="lblHeaderTitel" destination="v" id="o"/></connections></placeholder>)",
         "has no outlet \"lblHeaderTitel\"; did you mean \"lblHeaderTitle\"?"},
        {R"(<label id="l"><color key="shadowColor" white="1"/><nil key="highlightedColor"/></label>)",
         "<color>: the shadowColor of a UILabel has no effect here [interface.ignored]"},
        {R"(<button id="b"><state key="normal"><color key="titleShadowColor" white="1"/></state></button>)",
         "<color>: the titleShadowColor of a UIButton has no effect here"},
        {R"(<button id="b"><state key="selected" title="On"/></button>)",
         "<state>: the state selected of a UIButton has no effect here"},
        {R"(<button id="b" buttonType="sytem"/>)",
         "which has no meaning; did you mean \"system\"? [interface.ignored]"},
        {R"(<view id="v"><rect key="fram" x="0" y="0" width="1" height="1"/></view>)",
         "the fram of a UIView has no effect"},
        {R"(<view id="v"><gestureRecognizers/></view>)", "has no effect here, with all inside [interface.ignored]"},
        {R"(<imageView id="i" image="leav"/>)", "did you mean \"leaf\"?"},
        {R"(<label id="l"><color key="textColor" name="Ink"/></label>)",
         "which has no colour for the dark appearance [catalog.dark]"},
    };
    write("Assets.xcassets/leaf.imageset/Contents.json", R"({"images":[{"idiom":"universal"}]})");
    write("Assets.xcassets/Ink.colorset/Contents.json",
          R"({"colors":[{"idiom":"universal","color":{"components":{"white":"0.0","alpha":"1.0"}}}]})");
    for (const auto& [objects, finding] : faults) {
        write("A.xib", nibWith(objects));
        EXPECT_THAT(findings(), testing::HasSubstr(finding)) << objects;
        EXPECT_THAT(findings(), testing::StartsWith("A.xib:3:")) << objects;
    }
    write("A.xib", nibWith(R"(<label id="l" text="Truths &amp; Dares &#x2019; <!-- & -->"/><!-- & -->)"));
    EXPECT_THAT(findings(), testing::Not(testing::HasSubstr("ampersand")));
}

} // namespace
