#include "tests/interface/InterfaceFixture.h"

#include <sstream>

namespace {

class NibErrors : public InterfaceFixture {
protected:
    /// What is reported of a nib, without the bundle's path; nothing when all is well.
    [[nodiscard]] std::string errorsOf(const Result<Objects>& made) const {
        return made ? "" : withoutFolder(made.failure().what);
    }
    /// Each line of `cases` is "WRITTEN => REPORT": what stands between two parts of a nib's objects, and its error.
    void expect(const std::string& before, const std::string& after, const std::string& cases) const {
        std::istringstream lines(cases);
        for (std::string line; std::getline(lines, line);) {
            const std::size_t arrow = line.find(" => ");
            const std::string errors = errorsOf(instantiateObjects(before + "\n" + line.substr(0, arrow) + after));
            EXPECT_EQ(errors, "Test.xib:4:1: error: " + line.substr(arrow + 4)) << line;
        }
    }
};

TEST_F(NibErrors, NameUnknownElementsAndClassesAndValuesOfTheWrongType) {
    expect("<view><subviews>", "</subviews></view>",
           R"(<lable id="l"/> => <lable id="l">: there are no objects of this kind here; did you mean label?
<view customClass="AppVew"/> => <view>: there is no class "AppVew"; did you mean AppView?
<view customClass="UIResponder"/> => <view>: interface files cannot make objects of the class UIResponder
<view customClass="CategoriesVC"/> => <view>: CategoriesVC is no view
<label numberOfLines="many"/> => <label>: numberOfLines is "many", a number is expected
<view hidden="true"/> => <view>: hidden is "true", YES or NO is expected
<view alpha="nan"/> => <view>: alpha is "nan", a number is expected
<view alpha="-INF"/> => <view>: alpha is "-INF", a number is expected
<view alpha="1e10"/> => <view>: alpha is "1e10", a number is expected
<view alpha="1e999"/> => <view>: alpha is "1e999", a number is expected
<view alpha="0x10"/> => <view>: alpha is "0x10", a number is expected
<view alpha=" 1"/> => <view>: alpha is " 1", a number is expected
<view alpha="1 "/> => <view>: alpha is "1 ", a number is expected
<view alpha=""/> => <view>: alpha is "", a number is expected
<view alpha="--1"/> => <view>: alpha is "--1", a number is expected
<label><fontDescription key="textColor" type="system"/></label> => <label>: textColor is of another kind, a colour is expected)");
    const std::string resources = "</label></objects><resources><systemColor name=\"itself\"><color "
                                  "cocoaTouchSystemColor=\"itself\"/></systemColor></resources><objects>";
    expect("<label>", resources,
           R"(<rect key="frame" x="0" y="0" width="1O" height="1"/> => <rect>: width is "1O", a number is expected
<rect key="frame" x="0" y="0" width="1"/> => <rect>: height is missing
<fontDescription key="fontDescription" type="sytem"/> => <fontDescription>: type is "sytem", one of system, boldSystem, italicSystem is expected
<fontDescription key="fontDescription" type="system" weight="bolt"/> => <fontDescription>: weight is "bolt", a weight of the system font is expected; did you mean bold?
<color key="textColor" red="1" green="1"/> => <color>: blue is missing
<color key="textColor" systemColor="mauveColor"/> => <color>: there is no system colour "mauveColor"
<color key="textColor" cocoaTouchSystemColor="itself"/> => <color>: there is no system colour "itself")");
}

TEST_F(NibErrors, NameOutletsAndActionsThatCannotBeConnected) {
    expect(
        R"(<tableViewCell customClass="ModeTblCell"><tableViewCellContentView id="v"/><connections>)",
        "</connections></tableViewCell>",
        R"(<outlet property="lblTitel" destination="v"/> => <outlet>: ModeTblCell has no outlet "lblTitel"; did you mean lblTitle?
<outlet property="lblTitle" destination="v" id="o"/> => <outlet id="o">: the outlet "lblTitle" of ModeTblCell cannot hold a UIView
<outlet property="lblTitle" destination="w"/> => <outlet>: destination: no object has the id "w"
<outletCollection property="all" destination="v"/> => <outletCollection>: outlet collections are not supported)");
    const std::string responder = R"(<placeholder placeholderIdentifier="IBFirstResponder" id="-2"/>)";
    expect("<button id=\"b\"><connections>", "</connections></button>" + responder,
           R"(<action selector="go:" destination="b"/> => <action>: UIButton has no action "go:"
<action selector="go:" destination="x"/> => <action>: destination: no object has the id "x"
<action selector="go:" destination="-2" eventType="touchUpInsid"/> => <action>: eventType is "touchUpInsid", the name of a control's event is expected; did you mean touchUpInside?)");
    expect("<label><connections>", "</connections></label>" + responder,
           R"(<action selector="go:" destination="-2"/> => <action>: UILabel is no control and sends no actions)");
}

TEST_F(NibErrors, NameKeysThatCannotBeSet) {
    expect(
        "<view><userDefinedRuntimeAttributes>", "</userDefinedRuntimeAttribute></userDefinedRuntimeAttributes></view>",
        R"(<userDefinedRuntimeAttribute type="string" keyPath="layer.cornerRadios" value="2"> => <userDefinedRuntimeAttribute>: CALayer has no key "cornerRadios"; did you mean cornerRadius?
<userDefinedRuntimeAttribute type="number" keyPath="layer.shadowRadius"><real key="value" value="2"/> => <userDefinedRuntimeAttribute>: the key "shadowRadius" of CALayer does not take this value
<userDefinedRuntimeAttribute type="string" keyPath="layr.cornerRadius" value="2"> => <userDefinedRuntimeAttribute>: UIView has no part "layr"
<userDefinedRuntimeAttribute type="string" keyPath="alpha" value="2"> => <userDefinedRuntimeAttribute>: the key "alpha" of UIView does not take a string
<userDefinedRuntimeAttribute type="number" keyPath="alpha" value="2"> => <userDefinedRuntimeAttribute>: the value is missing or of another type than number
<userDefinedRuntimeAttribute type="boolean" keyPath="hidden" value="1"> => <userDefinedRuntimeAttribute>: value is "1", YES or NO is expected
<userDefinedRuntimeAttribute type="range" keyPath="hidden"> => <userDefinedRuntimeAttribute>: values of the type "range" are not supported
<userDefinedRuntimeAttribute type="string" keyPath="" value="2"> => <userDefinedRuntimeAttribute>: UIView has no key "")");
}

TEST_F(NibErrors, NameConstraintsThatMakeNoSense) {
    expect(
        R"(<view id="v"><subviews><view id="w"/></subviews><constraints>)",
        R"(</constraints></view><view id="other"/>)",
        R"(<constraint firstAttribute="widht"/> => <constraint>: firstAttribute is "widht", a layout attribute is expected; did you mean width?
<constraint firstItem="x" firstAttribute="width"/> => <constraint>: firstItem: no object has the id "x"
<constraint firstItem="w" firstAttribute="top" secondItem="other" secondAttribute="top"/> => <constraint>: the constraint reaches outside the view that holds it
<constraint firstItem="other" firstAttribute="width"/> => <constraint>: the constraint reaches outside the view that holds it
<constraint firstItem="w" firstAttribute="right" secondItem="v" secondAttribute="trailing"/> => <constraint>: an edge that follows the language is tied to left or right, which the phone refuses
<constraint firstAttribute="width" relation="atLeast"/> => <constraint>: relation is "atLeast", one of equal, lessThanOrEqual, greaterThanOrEqual is expected
<constraint firstAttribute="width" multiplier="1:0"/> => <constraint>: multiplier is "1:0", a number or a ratio is expected
<constraint firstAttribute="width" priority="1001" id="k"/> => <constraint id="k">: priority is 1001, 1 to 1000 is expected
<constraint firstAttribute="width" constant="inf"/> => <constraint>: constant is "inf", a number is expected)");
}

TEST_F(NibErrors, AreAllToldAtOnce) {
    const std::string objects =
        "<view hidden=\"1\"><subviews>\n<lable><subviews><view id=\"x\"/></subviews></lable>\n<view "
        "customClass=\"Nothing12345\"/></subviews>"
        "\n<constraints><constraint firstAttribute=\"x\"/><constraint firstItem=\"x\" firstAttribute=\"top\"/>"
        "<constraint firstItem=\"y\" firstAttribute=\"top\"/><constraint firstItem=\"y\" firstAttribute=\"left\"/>"
        "</constraints></view>";
    EXPECT_EQ(errorsOf(instantiateObjects(objects)),
              "Test.xib:3:1: error: <view>: hidden is \"1\", YES or NO is expected\n"
              "Test.xib:4:1: error: <lable>: there are no objects of this kind here; did you mean label?\n"
              "Test.xib:5:1: error: <view>: there is no class \"Nothing12345\"\n"
              "Test.xib:6:14: error: <constraint>: firstAttribute is \"x\", a layout attribute is expected\n"
              "Test.xib:6:94: error: <constraint>: firstItem: no object has the id \"y\"");
}

TEST_F(NibErrors, AreNotMadeOfWhatOtherDocumentsContain) {
    const std::string view = R"(<view id="v" contentMode="topLeft" sparkle="YES"><glitter/>
        <color key="tintColor" systemColor="systemGray2Color" red="0.6" green="0.6" blue="0.6"/>
        <subviews><imageView id="i" contentMode="scaleAspectFill" image="star" catalog="system"/>
        <label id="l" opaque="NO" contentMode="left" text="a" lineBreakMode="middleTruncation" minimumFontSize="7">
         <fontDescription key="fontDescription" style="UICTFontTextStyleCaption1"/><nil key="textColor"/>
         <nil key="highlightedColor"/></label></subviews><viewLayoutGuide key="safeArea" id="s"/><constraints>)";
    for (const std::string name :
         {"baseline", "firstBaseline", "leadingMargin", "bottomMargin", "centerXWithinMargins"}) {
        const std::string constraint =
            "<constraint firstItem=\"l\" firstAttribute=\"" + name + "\" secondItem=\"v\" secondAttribute=\"" + name +
            "\" symbolic=\"YES\" relation=\"lessThanOrEqual\" multiplier=\"2/3\" constant=\"8\"/></constraints></view>";
        EXPECT_EQ(errorsOf(instantiateObjects(view + constraint)), "") << name;
    }
}

TEST_F(NibErrors, TellOfAMissingFileAndOfAStoryboardInItsPlace) {
    EXPECT_EQ(errorsOf(instantiate("Nothing")).substr(0, 19), "Nothing.xib: error:");
    write("Board.xib", storyboardWith("", ""));
    EXPECT_EQ(errorsOf(instantiate("Board")),
              "Board.xib:2:1: error: <document>: a storyboard stands where a nib is expected");
}

} // namespace
