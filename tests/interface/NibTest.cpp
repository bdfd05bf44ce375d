#include "platform/runtime/ClassRegistry.h"
#include "platform/runtime/SourceLocation.h"
#include "platform/uikit/controls/UIButton.h"
#include "platform/uikit/controls/UIImageView.h"
#include "platform/uikit/controls/UIScrollView.h"
#include "platform/uikit/window/UITouch.h"
#include "tests/interface/InterfaceFixture.h"

namespace {

using Nib = InterfaceFixture;

const std::string cell = R"(<placeholder placeholderIdentifier="IBFilesOwner" id="-1"/>
<placeholder placeholderIdentifier="IBFirstResponder" id="-2" customClass="UIResponder"/>
<tableViewCell customClass="ModeTblCell" reuseIdentifier="row"><tableViewCellContentView key="contentView" id="v"><subviews>
  <label id="l" text="A &amp; B" numberOfLines="0" translatesAutoresizingMaskIntoConstraints="NO">
   <fontDescription key="fontDescription" type="system" weight="semibold" pointSize="16"/></label></subviews>
  <constraints><constraint firstItem="l" firstAttribute="leading" secondItem="v" secondAttribute="leadingMargin"
    multiplier="3:2" priority="999" constant="-4" identifier="edge" userLabel="k"/>
   <constraint firstItem="l" firstAttribute="width" placeholder="YES" constant="7"/></constraints>
  <userDefinedRuntimeAttributes><userDefinedRuntimeAttribute type="number" keyPath="layer.cornerRadius">
   <integer key="value" value="9"/></userDefinedRuntimeAttribute></userDefinedRuntimeAttributes></tableViewCellContentView>
 <connections><outlet property="lblTitle" destination="l"/><outlet property="viewBackground" destination="v"/></connections>
 <userDefinedRuntimeAttributes><userDefinedRuntimeAttribute type="string" keyPath="accessibilityIdentifier" value="x"/>
 </userDefinedRuntimeAttributes></tableViewCell>)";

TEST_F(Nib, MakesACellWithItsContentAndConstraintsConnectedAndAwakensIt) {
    const auto made = first<StandInModeCell>(cell);
    ASSERT_TRUE(made);
    EXPECT_EQ(made->reuseIdentifier(), "row");
    EXPECT_EQ(made->lblTitle->text(), "A & B");
    EXPECT_EQ(made->lblTitle->numberOfLines(), 0);
    EXPECT_EQ(*made->lblTitle->font(), UIFont(16, UIFontWeight::semibold));
    EXPECT_EQ(made->lblTitle->superview(), made->contentView().get());
    EXPECT_TRUE(made->viewBackground.is(*made->contentView()));
    EXPECT_EQ(made->accessibilityIdentifier(), "x");
    EXPECT_TRUE(made->awakenings == 1 && made->readyWhenAwoken);
    const SourceLocation* label = sourceLocationOf(*made->lblTitle);
    ASSERT_TRUE(label);
    EXPECT_EQ(withoutFolder(*label->file), "Test.xib");
    EXPECT_EQ(label->place, (TextPlace{6, 3}));
    EXPECT_EQ(label->element, "<label id=\"l\">");
    EXPECT_NE(instantiate("Test").value()[0], made);
    EXPECT_TRUE(made->lblTitle->constraints().empty()); // the placeholder
    ASSERT_EQ(made->contentView()->constraints().size(), 1u);
    const NSLayoutConstraint& constraint = *made->contentView()->constraints()[0];
    EXPECT_EQ(constraint.first().view.lock(), made->lblTitle.get());
    EXPECT_EQ(constraint.identifier(), "edge (Test.xib:8)");
    EXPECT_EQ(std::tuple(constraint.first().guide, constraint.second().guide, constraint.second().attribute),
              std::tuple(LayoutGuide::view, LayoutGuide::margins, LayoutAttribute::leading));
    EXPECT_EQ(std::tuple(constraint.multiplier(), constraint.constant(), constraint.priority()),
              std::tuple(1.5, -4.0, 999.0F));
}

TEST_F(Nib, LetsNoFingerScrollWhereTheDocumentSaysSo) {
    for (const auto& [enabled, offset] : {std::pair("YES", 100), std::pair("NO", 0)}) {
        const auto view = first<UIScrollView>("<scrollView scrollEnabled=\"" + std::string(enabled) + "\"/>");
        view->setContentSize({0, 500});
        const auto finger = std::make_shared<UITouch>(CGPoint{0, 100});
        view->touchesBeganWithEvent({finger}, nullptr);
        finger->moveTo({0, 0}, UITouchPhase::moved);
        view->touchesMovedWithEvent({finger}, nullptr);
        EXPECT_EQ(view->contentOffset().y, offset);
    }
}

TEST_F(Nib, ReadsAFileAgainThatHasChanged) {
    ASSERT_TRUE(first<UILabel>("<label id=\"l\"/>"));
    const auto before = std::filesystem::last_write_time(folder() / "Test.xib");
    write("Test.xib", nibWith("<button id=\"l\"/>"));
    std::filesystem::last_write_time(folder() / "Test.xib", before + std::chrono::seconds(1));
    EXPECT_EQ(classNameOf(*instantiate("Test").value()[0]), "UIButton");
}

TEST_F(Nib, ALabelOfOneLineShrinksItsTextAsFarAsItsFileAllows) {
    const auto label =
        first<UILabel>(R"(<label id="l" text="Everybody Plays" adjustsFontSizeToFit="YES" minimumScaleFactor="0.5"/>)");
    ASSERT_TRUE(label);
    const CGSize natural = label->textLayout(std::nullopt)->size();
    const auto heightIn = [&](CGFloat share) {
        return label->textLayoutFitting({natural.width * share, natural.height})->size().height / natural.height;
    };
    EXPECT_EQ(heightIn(1), 1);
    EXPECT_NEAR(heightIn(0.8), 0.8, 0.01);
    EXPECT_NEAR(heightIn(0.3), 0.5, 0.01);
}

TEST_F(Nib, ConnectsItsOwnerAndGivesTopLevelObjectsInFileOrder) {
    const auto owner = first<StandInModeCell>("<tableViewCell customClass=\"ModeTblCell\"/>");
    const std::string owned = R"(<placeholder placeholderIdentifier="IBFilesOwner" id="-1" customClass="ModeTblCell">
 <connections><outlet property="lblTitle" destination="l" id="o"/></connections></placeholder>
<label id="l" text="T"/><placeholder placeholderIdentifier="IBFirstResponder" id="-2"/><button id="l"/>)";
    EXPECT_TRUE(instantiateObjects(owned)) << "without an owner";
    const auto objects = instantiateObjects(owned, owner);
    ASSERT_TRUE(objects);
    EXPECT_EQ(owner->lblTitle->text(), "T") << "the first of two objects with one id counts";
    EXPECT_EQ(owner->awakenings, 1) << "not again with the file's objects";
    ASSERT_EQ(objects.value().size(), 2u);
    EXPECT_EQ(classNameOf(*objects.value()[0]) + ", " + classNameOf(*objects.value()[1]), "UILabel, UIButton");
}

TEST_F(Nib, ReadsColoursInEveryFormAndANamedOneFromItsOwnResourcesWhereTheCatalogueLacksIt) {
    write(
        "Assets.xcassets/Twig.colorset/Contents.json",
        R"({"colors":[{"idiom":"universal","color":{"components":{"red":"1.0","green":"0","blue":"0","alpha":"1"}}}]})");
    const std::vector<std::pair<std::string, RGBA>> forms{
        {R"(white="0.25" alpha="0.5" customColorSpace="genericGamma22GrayColorSpace")", {0.25, 0.25, 0.25, 0.5}},
        {R"(red="0.1" green="0.2" blue="0.3" alpha="1" customColorSpace="sRGB")", {0.1, 0.2, 0.3, 1}},
        {R"(red="0.1" green="0.2" blue="0.3" alpha="1" colorSpace="calibratedRGB")", {0.1, 0.2, 0.3, 1}},
        {R"(red="1" green="0" blue="0" systemColor="systemBackgroundColor")", {1, 1, 1, 1}},
        {R"(cocoaTouchSystemColor="darkGrayColor" white="0.2" alpha="1")",
         UIColor::systemColorNamed("darkGrayColor")->components()},
        {R"(name="Leaf")", {0, 0.5, 0, 1}},
        {R"(name="Twig")", {1, 0, 0, 1}}};
    for (const auto& [written, expected] : forms) {
        const auto view = first<UIView>(
            "<view><color key=\"backgroundColor\" " + written + "/></view></objects><resources>" +
            R"(<namedColor name="Leaf"><color red="0" green="0.5" blue="0"/></namedColor></resources><objects>)");
        EXPECT_EQ(view->backgroundColor()->components(), expected) << written;
    }
}

TEST_F(Nib, FillsInWhatIsNotWrittenOrThatNobodyHas) {
    EXPECT_FALSE(first<UIImageView>("<imageView image=\"nothing\"/>")->image());
    const auto label =
        first<UILabel>("<label><string key=\"text\">one\ntwo</string><color key=\"textColor\" name=\"Nothing\"/>"
                       "<fontDescription key=\"fontDescription\" type=\"boldSystem\" pointSize=\"0.0\"/></label>");
    EXPECT_TRUE(label->textColor());
    EXPECT_EQ(*label->font(), *UIFont::boldSystemFontOfSize(17));
    EXPECT_EQ(label->text(), "one\ntwo");
}

TEST_F(Nib, ReadsHowAViewIsAndBehaves) {
    const auto view = first<UIView>(
        R"(<view hidden="YES" clipsSubviews="YES" alpha="0.5" tag="9" verticalHuggingPriority="999">
 <rect key="frame" x="1" y="2" width="30" height="40"/>
 <autoresizingMask key="autoresizingMask" widthSizable="YES" flexibleMaxY="YES"/>
 <accessibility key="accessibilityConfiguration" identifier="box" label="A box"/></view>)");
    EXPECT_EQ(view->frame(), CGRectMake(1, 2, 30, 40));
    EXPECT_TRUE(view->isHidden() && view->clipsToBounds());
    EXPECT_EQ(std::tuple(view->alpha(), view->tag(), view->verticalPriorities().hugging), std::tuple(0.5, 9, 999.0F));
    EXPECT_EQ(view->autoresizingMask(), UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleBottomMargin);
    EXPECT_EQ(view->accessibilityIdentifier() + ": " + view->accessibilityLabel(), "box: A box");
}

TEST_F(Nib, CentresAButtonsTitleInsideItsInsets) {
    const auto button = first<UIButton>(
        R"(<button buttonType="system"><rect key="frame" x="0" y="0" width="200" height="60"/>
 <inset key="contentEdgeInsets" minX="20" minY="10" maxX="40" maxY="10"/><state key="normal" title="Let's play"/></button>)");
    button->layoutIfNeeded();
    const CGSize text = button->titleLabel()->intrinsicContentSize();
    EXPECT_EQ(button->intrinsicContentSize(), (CGSize{text.width + 60, text.height + 20}));
    EXPECT_NEAR(button->titleLabel()->frame().size.width, text.width, 1e-9);
    EXPECT_NEAR(button->titleLabel()->frame().midX(), 90, 0.5);
    EXPECT_NEAR(button->titleLabel()->frame().midY(), 30, 0.5);
    EXPECT_EQ(*button->titleLabel()->textColor(), *UIColor::systemColorNamed("systemBlueColor"));
    EXPECT_EQ(button->hitTestWithEvent({90, 30}, nullptr), button);
}

} // namespace
