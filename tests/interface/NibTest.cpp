#include "platform/interface/SourceLocation.h"
#include "platform/runtime/ClassRegistry.h"
#include "tests/interface/InterfaceFixture.h"
#include "tests/interface/StandIns.h"

namespace {

using Nib = InterfaceFixture;

const std::string cell = R"(<placeholder placeholderIdentifier="IBFilesOwner" id="-1"/>
<placeholder placeholderIdentifier="IBFirstResponder" id="-2" customClass="UIResponder"/>
<tableViewCell id="c" customClass="ModeTblCell" reuseIdentifier="row">
 <tableViewCellContentView key="contentView" id="v"><subviews>
  <label id="l" text="A &amp; B" numberOfLines="0" translatesAutoresizingMaskIntoConstraints="NO">
   <fontDescription key="fontDescription" type="system" weight="semibold" pointSize="16"/></label></subviews>
  <constraints><constraint firstItem="l" firstAttribute="leading" secondItem="v" secondAttribute="leadingMargin"
    multiplier="3:2" priority="999" constant="-4" identifier="edge" id="k"/>
   <constraint firstItem="l" firstAttribute="width" placeholder="YES" constant="7" id="p"/></constraints>
 </tableViewCellContentView>
 <connections><outlet property="lblTitle" destination="l" id="o1"/><outlet property="viewBackground" destination="v" id="o2"/>
 </connections>
 <userDefinedRuntimeAttributes><userDefinedRuntimeAttribute type="string" keyPath="accessibilityIdentifier" value="x"/>
 </userDefinedRuntimeAttributes>
</tableViewCell>)";

TEST_F(Nib, MakesACellWithItsContentConnected) {
    const auto made = firstOf<StandInModeCell>(instantiateObjects(cell));
    ASSERT_TRUE(made);
    EXPECT_EQ(made->reuseIdentifier(), "row");
    EXPECT_EQ(made->lblTitle->text(), "A & B");
    EXPECT_EQ(made->lblTitle->numberOfLines(), 0);
    EXPECT_EQ(*made->lblTitle->font(), UIFont(16, UIFontWeight::semibold));
    EXPECT_EQ(made->lblTitle->superview(), made->contentView().get());
    EXPECT_TRUE(made->viewBackground.is(*made->contentView()));
    EXPECT_EQ(made->accessibilityIdentifier(), "x");
    EXPECT_FALSE(made->imgSelection.get());
}

TEST_F(Nib, MakesConstraintsAndLeavesPlaceholdersOut) {
    const auto made = firstOf<StandInModeCell>(instantiateObjects(cell));
    EXPECT_TRUE(made->lblTitle->constraints().empty()); // the placeholder
    ASSERT_EQ(made->contentView()->constraints().size(), 1u);
    const NSLayoutConstraint& constraint = *made->contentView()->constraints()[0];
    EXPECT_EQ(constraint.first().view.lock(), made->lblTitle.get());
    EXPECT_EQ(constraint.first().guide, LayoutGuide::view);
    EXPECT_EQ(constraint.second().guide, LayoutGuide::margins);
    EXPECT_EQ(constraint.second().attribute, LayoutAttribute::leading);
    EXPECT_DOUBLE_EQ(constraint.multiplier(), 1.5);
    EXPECT_EQ(constraint.constant(), -4);
    EXPECT_EQ(constraint.priority(), 999);
    EXPECT_EQ(constraint.identifier(), "edge (Test.xib:9)");
}

TEST_F(Nib, AwakensEachObjectOnceAfterOutletsAndKeysAreSet) {
    const auto made = firstOf<StandInModeCell>(instantiateObjects(R"(<tableViewCell id="c" customClass="ModeTblCell">
 <tableViewCellContentView key="contentView" id="v"><subviews><label id="l"/><view id="w">
  <userDefinedRuntimeAttributes><userDefinedRuntimeAttribute type="number" keyPath="layer.cornerRadius">
   <integer key="value" value="9"/></userDefinedRuntimeAttribute></userDefinedRuntimeAttributes></view></subviews>
 </tableViewCellContentView>
 <connections><outlet property="lblTitle" destination="l" id="o1"/><outlet property="viewBackground" destination="w" id="o2"/>
 </connections></tableViewCell>)"));
    EXPECT_EQ(made->awakenings, 1);
    EXPECT_TRUE(made->connectedWhenAwoken);
    EXPECT_EQ(made->viewBackground->layer()->cornerRadius(), 9);
}

TEST_F(Nib, GivesNewObjectsEachTime) {
    const auto one = firstOf<StandInModeCell>(instantiateObjects(cell));
    const auto two = firstOf<StandInModeCell>(instantiate("Test"));
    EXPECT_NE(one, two);
    EXPECT_NE(one->lblTitle.get(), two->lblTitle.get());
}

TEST_F(Nib, ReadsAFileAgainThatHasChanged) {
    ASSERT_TRUE(firstOf<UILabel>(instantiateObjects("<label id=\"l\"/>")));
    const auto before = std::filesystem::last_write_time(folder() / "Test.xib");
    write("Test.xib", nibWith("<button id=\"l\"/>"));
    std::filesystem::last_write_time(folder() / "Test.xib", before + std::chrono::seconds(1));
    EXPECT_TRUE(firstOf<UIButton>(instantiate("Test")));
}

TEST_F(Nib, ListsTopLevelObjectsInFileOrderWithoutPlaceholders) {
    const auto objects = instantiateObjects(
        "<label id=\"a\"/><placeholder placeholderIdentifier=\"IBFirstResponder\" id=\"-2\"/><button id=\"b\"/>");
    ASSERT_TRUE(objects);
    ASSERT_EQ(objects.value().size(), 2u);
    EXPECT_EQ(classNameOf(*objects.value()[0]), "UILabel");
    EXPECT_EQ(classNameOf(*objects.value()[1]), "UIButton");
}

const std::string owned = R"(<placeholder placeholderIdentifier="IBFilesOwner" id="-1" customClass="ModeHeaderView">
 <connections><outlet property="lblHeaderTitle" destination="l" id="o"/></connections></placeholder>
<view id="v"><subviews><label id="l" text="T"/></subviews></view>)";

TEST_F(Nib, ConnectsItsOwnerAndDoesWithoutOne) {
    const auto header = firstOf<StandInHeader>(instantiateObjects("<view id=\"h\" customClass=\"ModeHeaderView\"/>"));
    const auto objects = instantiateObjects(owned, header);
    ASSERT_TRUE(objects);
    EXPECT_EQ(header->lblHeaderTitle->text(), "T");
    EXPECT_TRUE(instantiateObjects(owned));
}

TEST_F(Nib, LeavesOutWhatTheDefaultVariationExcludes) {
    const auto view =
        firstOf<UIView>(instantiateObjects(R"(<view id="v"><subviews><view id="a"/><view id="b"/></subviews>
 <constraints><constraint firstAttribute="width" constant="1" id="k1"/><constraint firstAttribute="height" id="k2"/>
 </constraints><variation key="default"><mask key="subviews"><exclude reference="a"/></mask>
 <mask key="constraints"><exclude reference="k2"/></mask></variation>
 <variation key="heightClass=compact"><mask key="subviews"><include reference="a"/></mask></variation></view>)"));
    EXPECT_EQ(view->subviews().size(), 1u);
    ASSERT_EQ(view->constraints().size(), 1u);
    EXPECT_EQ(view->constraints()[0]->constant(), 1);
}

TEST_F(Nib, KeepsTheFirstOfTwoObjectsWithOneId) {
    const auto header = firstOf<StandInHeader>(
        instantiateObjects(R"(<view id="h" customClass="ModeHeaderView"><subviews><label id="l" text="1"/>
 <label id="l" text="2"/></subviews><connections><outlet property="lblHeaderTitle" destination="l" id="o"/></connections>
</view>)"));
    EXPECT_EQ(header->lblHeaderTitle->text(), "1");
    EXPECT_EQ(header->subviews().size(), 2u);
}

TEST_F(Nib, RemembersWhereEachObjectCameFrom) {
    const auto made = firstOf<StandInModeCell>(instantiateObjects(cell));
    const auto label = sourceLocationOf(*made->lblTitle);
    ASSERT_TRUE(label);
    EXPECT_EQ(withoutFolder(label->file), "Test.xib");
    EXPECT_EQ(label->line, 7);
    EXPECT_EQ(label->column, 3);
    EXPECT_EQ(sourceLocationOf(*made->contentView()->constraints()[0])->line, 9);
    EXPECT_FALSE(sourceLocationOf(*std::make_shared<UIView>()));
}

TEST_F(Nib, ReadsColoursInEveryForm) {
    const auto colorOf = [&](const std::string& attributes) {
        const auto view =
            firstOf<UIView>(instantiateObjects("<view><color key=\"backgroundColor\" " + attributes + "/></view>"));
        return view && view->backgroundColor() ? view->backgroundColor()->resolved(UIUserInterfaceStyle::light)
                                               : RGBA{};
    };
    const auto expectColor = [](const RGBA& color, double red, double green, double blue, double alpha) {
        EXPECT_NEAR(color.red, red, 0.002);
        EXPECT_NEAR(color.green, green, 0.002);
        EXPECT_NEAR(color.blue, blue, 0.002);
        EXPECT_NEAR(color.alpha, alpha, 0.002);
    };
    expectColor(
        colorOf(R"(white="0.25" alpha="0.5" colorSpace="custom" customColorSpace="genericGamma22GrayColorSpace")"),
        0.25, 0.25, 0.25, 0.5);
    expectColor(colorOf(R"(red="0.1" green="0.2" blue="0.3" alpha="1" colorSpace="custom" customColorSpace="sRGB")"),
                0.1, 0.2, 0.3, 1);
    expectColor(colorOf(R"(red="0.1" green="0.2" blue="0.3" alpha="1" colorSpace="calibratedRGB")"), 0.1, 0.2, 0.3, 1);
    expectColor(colorOf(R"(red="1" green="0" blue="0" colorSpace="custom" customColorSpace="displayP3")"), 1, 0, 0, 1);
    expectColor(colorOf(R"(red="0.5" green="0.6" blue="0.4" colorSpace="custom" customColorSpace="displayP3")"), 0.4737,
                0.6038, 0.3760, 1);
    EXPECT_EQ(colorOf(R"(red="1" green="0" blue="0" systemColor="systemBackgroundColor")"),
              UIColor::systemColorNamed("systemBackgroundColor")->resolved(UIUserInterfaceStyle::light));
    EXPECT_EQ(colorOf(R"(cocoaTouchSystemColor="darkTextColor" white="0.2" alpha="1")").alpha, 1);
}

TEST_F(Nib, TakesANamedColourFromTheCatalogueElseFromItsOwnResources) {
    const std::string objects = "<view><color key=\"backgroundColor\" name=\"Leaf\"/></view></objects>"
                                "<resources><namedColor name=\"Leaf\"><color red=\"0\" green=\"0.5\" blue=\"0\"/>"
                                "</namedColor></resources><objects>";
    EXPECT_EQ(firstOf<UIView>(instantiateObjects(objects))->backgroundColor()->components(), (RGBA{0, 0.5, 0, 1}));
    write(
        "Assets.xcassets/Twig.colorset/Contents.json",
        R"({"colors":[{"idiom":"universal","color":{"components":{"red":"1.0","green":"0","blue":"0","alpha":"1"}}}]})");
    const auto twig =
        firstOf<UIView>(instantiateObjects("<view><color key=\"backgroundColor\" name=\"Twig\"/></view>"));
    EXPECT_EQ(twig->backgroundColor()->components(), (RGBA{1, 0, 0, 1}));
}

TEST_F(Nib, ShowsNothingForAnImageOrColourThatNobodyHas) {
    const auto image = firstOf<UIImageView>(instantiateObjects("<imageView image=\"nothing\"/>"));
    EXPECT_FALSE(image->image());
    const auto label =
        firstOf<UILabel>(instantiateObjects("<label><color key=\"textColor\" name=\"Nothing\"/></label>"));
    EXPECT_TRUE(label->textColor());
}

TEST_F(Nib, TakesTheStandardFontSizeWhereNoneIsWritten) {
    const auto label = firstOf<UILabel>(instantiateObjects(
        "<label><fontDescription key=\"fontDescription\" type=\"boldSystem\" pointSize=\"0.0\"/></label>"));
    EXPECT_EQ(*label->font(), *UIFont::boldSystemFontOfSize(17));
}

TEST_F(Nib, ReadsTextsWithLineBreaksFromAChild) {
    const auto label = firstOf<UILabel>(instantiateObjects("<label><string key=\"text\">one\ntwo</string></label>"));
    EXPECT_EQ(label->text(), "one\ntwo");
}

TEST_F(Nib, SurvivesFramesOfAnySize) {
    for (const char* number : {"1e9", "-1e9", "0.1e-300"}) {
        const std::string n = number;
        EXPECT_TRUE(instantiateObjects("<view><rect key=\"frame\" x=\"" + n + "\" y=\"" + n + "\" width=\"" + n +
                                       "\" height=\"" + n + "\"/></view>"));
    }
}

} // namespace
