#include "simulator/check/InterfaceCheck.h"

#include "tests/support/InterfaceBundle.h"
#include "ui/UiClasses.h"

#include <gmock/gmock.h>

namespace {

class InterfaceCheck : public support::InterfaceBundle {
protected:
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
    EXPECT_EQ(findings(), "A.xib:1:9: error: malformed XML: Error parsing start element tag [interface.unreadable]\n"
                          "B.xib:3:37: error: <label id=\"l\">: the <label> in line 3 has the id \"l\", too "
                          "[interface.double-id]\n"
                          "B.xib:3:1: error: <label id=\"l\">: numberOfLines is \"many\", a number is expected "
                          "[interface.refused]\n"
                          "C.storyboard:4:82: error: <lable>: unknown element; did you mean label? "
                          "[interface.refused]\n"
                          "C.storyboard:5:14: warning: <segue id=\"s\">: segues are ignored [interface.ignored]\n");
}

TEST_F(InterfaceCheck, WarnsOfNamesThatTheCatalogueLacks) {
    write("A.xib", nibWith("<imageView id=\"i\" image=\"leaf\"><color key=\"tintColor\" name=\"Green\"/></imageView>\n"
                           "<imageView image=\"star\" catalog=\"system\"/>"));
    EXPECT_EQ(findings(),
              "A.xib:3:1: warning: <imageView id=\"i\">: the catalogue has no image \"leaf\" [interface.image]\n"
              "A.xib:3:32: warning: <color>: the catalogue has no colour \"Green\" [interface.color]\n");
}

TEST_F(InterfaceCheck, FindsBrokenSetsAndMissingFilesInTheCatalogue) {
    write("Assets.xcassets/a.colorset/Contents.json",
          "{\"colors\":[\n{\"idiom\":\"universal\",\"color\":{\"components\":"
          "{\"red\":\"x\",\"green\":\"0\",\"blue\":\"0\"}}}]}");
    write("Assets.xcassets/b.imageset/Contents.json",
          "{\"images\":[\n{\"idiom\":\"universal\",\"filename\":\"b.png\"}]}");
    write("Assets.xcassets/c.imageset/c.svg", "<svg/>");
    write("Assets.xcassets/c.imageset/c.png", "");
    write("Assets.xcassets/c.imageset/Contents.json",
          "{\"images\":[{\"idiom\":\"universal\",\"filename\":\"c.svg\"}]}");
    write("Assets.xcassets/d.dataset/Contents.json", "never read");
    EXPECT_EQ(
        findings(),
        "Assets.xcassets/a.colorset/Contents.json:2:51: warning: the component \"red\" is no number [catalog.set]\n"
        "Assets.xcassets/b.imageset/Contents.json:2:33: warning: the file Assets.xcassets/b.imageset/b.png is "
        "missing [catalog.file]\n"
        "Assets.xcassets/c.imageset/Contents.json:1:44: warning: the file Assets.xcassets/c.imageset/c.png "
        "cannot be drawn: it is empty, and 2 more of this set [catalog.file]\n");
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
