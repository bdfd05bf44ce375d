#include "tests/interface/InterfaceFixture.h"

namespace {

class NibErrors : public InterfaceFixture {
protected:
    /// What is written between the two parts of a nib's objects, and what is reported of it.
    using Cases = std::vector<std::pair<std::string, std::string>>;

    /// What is reported of a nib, without the bundle's path; nothing when all is well.
    [[nodiscard]] std::string errorsOf(const Result<Objects>& made) const {
        return made ? "" : withoutFolder(made.failure().what);
    }
    void expectReports(const std::string& place, const Cases& cases, const std::string& before,
                       const std::string& after) const {
        for (const auto& [written, report] : cases) {
            EXPECT_EQ(errorsOf(instantiateObjects(before + written + after)), "Test.xib:" + place + report) << written;
        }
    }
};

TEST_F(NibErrors, NameUnknownElementsAndClassesAndValuesOfTheWrongType) {
    expectReports("4:1: error: ",
                  {{R"(<lable id="l"/>)", R"(<lable id="l">: unknown element; did you mean label?)"},
                   {R"(<view id="v" customClass="GenericButon"/>)",
                    R"(<view id="v">: there is no class "GenericButon"; did you mean GenericButton?)"},
                   {R"(<view id="v" customClass="NSLayoutConstraint"/>)",
                    R"(<view id="v">: interface files cannot make objects of the class NSLayoutConstraint)"},
                   {R"(<view id="v" customClass="CategoriesVC"/>)", R"(<view id="v">: CategoriesVC is no view)"},
                   {R"(<label id="l" numberOfLines="many"/>)",
                    R"(<label id="l">: numberOfLines is "many", a number is expected)"},
                   {R"(<view id="v" hidden="true"/>)", R"(<view id="v">: hidden is "true", YES or NO is expected)"},
                   {R"(<label id="l"><fontDescription key="textColor" type="system"/></label>)",
                    R"(<label id="l">: textColor is of another kind, a colour is expected)"}},
                  "<view><subviews>\n", "</subviews></view>");
    expectReports(
        "4:1: error: ",
        {{R"(<rect key="frame" x="0" y="0" width="1O"/>)",
          "<rect>: width is \"1O\", a number is expected\nTest.xib:4:1: error: <rect>: height is missing"},
         {R"(<fontDescription key="fontDescription" type="sytem"/>)",
          R"(<fontDescription>: type is "sytem", one of system, boldSystem, italicSystem is expected)"},
         {R"(<fontDescription key="fontDescription" type="system" weight="bolt"/>)",
          R"(<fontDescription>: weight is "bolt", a weight of the system font is expected; did you mean bold?)"},
         {R"(<color key="textColor" red="1" green="1"/>)", "<color>: blue is missing"},
         {R"(<color key="textColor" systemColor="systemMauveColor"/>)",
          R"(<color>: there is no system colour "systemMauveColor")"},
         {R"(<color key="textColor" cocoaTouchSystemColor="itself"/></label></objects><resources><systemColor name="itself">
             <color cocoaTouchSystemColor="itself"/></systemColor></resources><objects><label>)",
          R"(<color>: there is no system colour "itself")"}},
        "<label>\n", "</label>");
    for (const std::string number : {"nan", "inf", "-INF", "1e308", "1e999", "0x10", " 1", "1 ", "", "--1"}) {
        expectReports("3:1: error: <view>: alpha is \"", {{number, number + "\", a number is expected"}},
                      "<view alpha=\"", "\"/>");
    }
}

TEST_F(NibErrors, NameOutletsAndActionsThatCannotBeConnected) {
    expectReports(
        "4:1: error: <outlet",
        {{R"(<outlet property="lblTitel" destination="v" id="o"/>)",
          R"( id="o">: ModeTblCell has no outlet "lblTitel"; did you mean lblTitle?)"},
         {R"(<outlet property="lblTitle" destination="v" id="o"/>)",
          R"( id="o">: the outlet "lblTitle" of ModeTblCell cannot hold a UIView)"},
         {R"(<outlet property="lblTitle" destination="w" id="o"/>)",
          R"( id="o">: destination: no object has the id "w")"},
         {R"(<outletCollection property="all" destination="v" id="o"/>)",
          R"(Collection id="o">: outlet collections are not supported)"}},
        R"(<tableViewCell id="c" customClass="ModeTblCell"><tableViewCellContentView key="contentView" id="v"/><connections>)"
        "\n",
        "</connections></tableViewCell>");
    const std::string place = "4:1: error: <action id=\"a\">: ";
    expectReports(
        place,
        {{R"(<action selector="go:" destination="b" id="a"/>)", R"(UIButton has no action "go:")"},
         {R"(<action selector="go:" destination="x" eventType="touchUpInsid" id="a"/>)",
          R"(eventType is "touchUpInsid", the name of a control's event is expected; did you mean touchUpInside?)"
          "\nTest.xib:" +
              place + R"(destination: no object has the id "x")"}},
        "<button id=\"b\"><connections>\n", "</connections></button>");
    expectReports(
        place, {{R"(<action selector="go:" destination="-2" id="a"/>)", "UILabel is no control and sends no actions"}},
        "<label id=\"l\"><connections>\n",
        R"(</connections></label><placeholder placeholderIdentifier="IBFirstResponder" id="-2"/>)");
}

TEST_F(NibErrors, NameKeysThatCannotBeSet) {
    const std::string number = "><real key=\"value\" value=\"2\"/>";
    expectReports(
        "4:1: error: <userDefinedRuntimeAttribute>: ",
         {{R"(type="number" keyPath="layer.cornerRadios")" + number,
           R"(CALayer has no key "cornerRadios"; did you mean cornerRadius?)"},
          {R"(type="number" keyPath="layer.shadowRadius")" + number,
           R"(the key "shadowRadius" of CALayer does not take this value)"},
         {R"(type="number" keyPath="layr.cornerRadius")" + number, R"(UIView has no part "layr")"},
         {R"(type="string" keyPath="alpha" value="2">)", R"(the key "alpha" of UIView does not take a string)"},
         {R"(type="number" keyPath="alpha" value="2">)", "the value is missing or of another type than number"},
         {R"(type="boolean" keyPath="hidden" value="1">)", R"(value is "1", YES or NO is expected)"},
         {R"(type="range" keyPath="hidden">)", R"(values of the type "range" are not supported)"},
         {R"(type="number" keyPath="")" + number, R"(UIView has no key "")"}},
        "<view><userDefinedRuntimeAttributes>\n<userDefinedRuntimeAttribute ",
        "</userDefinedRuntimeAttribute></userDefinedRuntimeAttributes></view>");
}

TEST_F(NibErrors, NameConstraintsThatMakeNoSense) {
    expectReports(
        "4:1: error: <constraint id=\"k\">: ",
        {{R"(firstItem="w" firstAttribute="widht")",
          R"(firstAttribute is "widht", a layout attribute is expected; did you mean width?)"},
         {R"(firstItem="x" firstAttribute="width")", R"(firstItem: no object has the id "x")"},
         {R"(firstItem="w" firstAttribute="top" secondItem="other" secondAttribute="top")",
          "the constraint reaches outside the view that holds it"},
         {R"(firstAttribute="width" relation="atLeast")",
          R"(relation is "atLeast", one of equal, lessThanOrEqual, greaterThanOrEqual is expected)"},
         {R"(firstAttribute="width" multiplier="1:0")", R"(multiplier is "1:0", a number or a ratio is expected)"},
         {R"(firstAttribute="width" priority="1001")", "priority is 1001, 1 to 1000 is expected"},
         {R"(firstAttribute="width" constant="inf")", R"(constant is "inf", a number is expected)"}},
        R"(<view id="v"><subviews><view id="w"/></subviews><constraints>)"
        "\n<constraint ",
        R"( id="k"/></constraints></view><view id="other"/>)");
}

TEST_F(NibErrors, AreAllToldAtOnceAndNotMadeOfUnknownAttributesAndChildren) {
    EXPECT_TRUE(
        instantiateObjects("<label text=\"a\" sparkle=\"YES\"><glitter/><nil key=\"highlightedColor\"/></label>"));
    EXPECT_EQ(errorsOf(instantiateObjects("<view hidden=\"1\"><subviews>\n<lable/>\n"
                                          "<view customClass=\"Nothing12345\"/></subviews>\n"
                                          "<constraints><constraint firstAttribute=\"x\"/></constraints></view>")),
              "Test.xib:3:1: error: <view>: hidden is \"1\", YES or NO is expected\n"
              "Test.xib:4:1: error: <lable>: unknown element; did you mean label?\n"
              "Test.xib:5:1: error: <view>: there is no class \"Nothing12345\"\n"
              "Test.xib:6:14: error: <constraint>: firstAttribute is \"x\", a layout attribute is expected");
}

TEST_F(NibErrors, TellOfAMissingFileAndOfAStoryboardInItsPlace) {
    EXPECT_EQ(errorsOf(instantiate("Nothing")).substr(0, 19), "Nothing.xib: error:");
    write("Board.xib", storyboardWith("", ""));
    EXPECT_EQ(errorsOf(instantiate("Board")),
              "Board.xib:2:1: error: <document>: a storyboard stands where a nib is expected");
}

} // namespace
