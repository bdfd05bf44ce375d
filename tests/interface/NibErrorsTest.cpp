#include "tests/interface/InterfaceFixture.h"

namespace {

using NibErrors = InterfaceFixture;

TEST_F(NibErrors, NameUnknownElementsAndClasses) {
    EXPECT_EQ(errorsOf("<view id=\"v\"><subviews>\n  <lable id=\"l\"/></subviews></view>"),
              "Test.xib:4:3: error: <lable id=\"l\">: unknown element; did you mean label?");
    EXPECT_EQ(errorsOf("<view id=\"v\" customClass=\"GenericButon\"/>"),
              "Test.xib:3:1: error: <view id=\"v\">: there is no class \"GenericButon\"; did you mean GenericButton?");
    EXPECT_EQ(errorsOf("<view id=\"v\" customClass=\"NSLayoutConstraint\"/>"),
              "Test.xib:3:1: error: <view id=\"v\">: interface files cannot make objects of the class "
              "NSLayoutConstraint");
    EXPECT_EQ(errorsOf("<view><subviews><view id=\"c\" customClass=\"CategoriesVC\"/></subviews></view>"),
              "Test.xib:3:17: error: <view id=\"c\">: CategoriesVC is no view");
}

TEST_F(NibErrors, NameValuesOfTheWrongType) {
    EXPECT_EQ(errorsOf("<label id=\"l\" numberOfLines=\"many\"/>"),
              "Test.xib:3:1: error: <label id=\"l\">: numberOfLines is \"many\", a number is expected");
    EXPECT_EQ(errorsOf("<view id=\"v\" hidden=\"true\"/>"),
              "Test.xib:3:1: error: <view id=\"v\">: hidden is \"true\", YES or NO is expected");
    const std::string mode = "Test.xib:3:1: error: <view>: contentMode is \"stretch\", one of scaleToFill";
    EXPECT_EQ(errorsOf("<view contentMode=\"stretch\"/>").substr(0, mode.size()), mode);
    EXPECT_EQ(errorsOf("<view>\n<rect key=\"frame\" x=\"0\" y=\"0\" width=\"1O\"/></view>"),
              "Test.xib:4:1: error: <rect>: width is \"1O\", a number is expected\n"
              "Test.xib:4:1: error: <rect>: height is missing");
    EXPECT_EQ(errorsOf("<label><fontDescription key=\"fontDescription\" type=\"sytem\"/></label>"),
              "Test.xib:3:8: error: <fontDescription>: type is \"sytem\", one of system, boldSystem, italicSystem is "
              "expected");
    EXPECT_EQ(errorsOf("<view><color key=\"backgroundColor\" red=\"1\" green=\"1\"/></view>"),
              "Test.xib:3:7: error: <color>: blue is missing");
    EXPECT_EQ(errorsOf("<view><color key=\"backgroundColor\" systemColor=\"systemMauveColor\"/></view>"),
              "Test.xib:3:7: error: <color>: there is no system colour \"systemMauveColor\"");
    EXPECT_EQ(errorsOf("<label id=\"l\"><fontDescription key=\"textColor\" type=\"system\"/></label>"),
              "Test.xib:3:1: error: <label id=\"l\">: textColor is of another kind, a colour is expected");
}

TEST_F(NibErrors, AcceptOnlyFiniteNumbersOfASaneSize) {
    for (const char* number : {"nan", "inf", "-INF", "1e308", "1e999", "0x10", " 1", "1 ", "", "--1"}) {
        const std::string text = number;
        EXPECT_EQ(errorsOf("<view alpha=\"" + text + "\"/>"),
                  "Test.xib:3:1: error: <view>: alpha is \"" + text + "\", a number is expected");
    }
}

TEST_F(NibErrors, NameOutletsThatCannotBeConnected) {
    const auto cell = [](const std::string& outlet) {
        return "<tableViewCell id=\"c\" customClass=\"ModeTblCell\"><tableViewCellContentView key=\"contentView\" "
               "id=\"v\"/>\n<connections>" +
               outlet + "</connections></tableViewCell>";
    };
    EXPECT_EQ(
        errorsOf(cell("<outlet property=\"lblTitel\" destination=\"v\" id=\"o\"/>")),
        "Test.xib:4:14: error: <outlet id=\"o\">: ModeTblCell has no outlet \"lblTitel\"; did you mean lblTitle?");
    EXPECT_EQ(errorsOf(cell("<outlet property=\"lblTitle\" destination=\"v\" id=\"o\"/>")),
              "Test.xib:4:14: error: <outlet id=\"o\">: the outlet \"lblTitle\" of ModeTblCell cannot hold a UIView");
    EXPECT_EQ(errorsOf(cell("<outlet property=\"lblTitle\" destination=\"w\" id=\"o\"/>")),
              "Test.xib:4:14: error: <outlet id=\"o\">: destination: no object has the id \"w\"");
    EXPECT_EQ(errorsOf(cell("<outletCollection property=\"all\" destination=\"v\" id=\"o\"/>")),
              "Test.xib:4:14: error: <outletCollection id=\"o\">: outlet collections are not supported");
}

TEST_F(NibErrors, NameActionsThatCannotBeSent) {
    const auto button = [](const std::string& action) {
        return "<button id=\"b\"><connections>" + action + "</connections></button>";
    };
    EXPECT_EQ(errorsOf(button("<action selector=\"go:\" destination=\"b\" id=\"a\"/>")),
              "Test.xib:3:29: error: <action id=\"a\">: UIButton has no action \"go:\"");
    EXPECT_EQ(
        errorsOf(button("<action selector=\"go:\" destination=\"x\" eventType=\"touchUpInsid\" id=\"a\"/>")),
        "Test.xib:3:29: error: <action id=\"a\">: eventType is \"touchUpInsid\", the name of a control's event is "
        "expected; did you mean touchUpInside?\n"
        "Test.xib:3:29: error: <action id=\"a\">: destination: no object has the id \"x\"");
    EXPECT_EQ(
        errorsOf("<label id=\"l\"><connections><action selector=\"go:\" destination=\"-2\" id=\"a\"/></connections>"
                 "</label><placeholder placeholderIdentifier=\"IBFirstResponder\" id=\"-2\"/>"),
        "Test.xib:3:28: error: <action id=\"a\">: UILabel is no control and sends no actions");
}

TEST_F(NibErrors, NameKeysThatCannotBeSet) {
    const auto view = [](const std::string& attribute) {
        return "<view><userDefinedRuntimeAttributes>\n<userDefinedRuntimeAttribute " + attribute +
               "</userDefinedRuntimeAttribute></userDefinedRuntimeAttributes></view>";
    };
    const std::string place = "Test.xib:4:1: error: <userDefinedRuntimeAttribute>: ";
    const std::string number = "<real key=\"value\" value=\"2\"/>";
    EXPECT_EQ(errorsOf(view("type=\"number\" keyPath=\"cornerRadios\">" + number)),
              place + "UIView has no key \"cornerRadios\"; did you mean cornerRadius?");
    EXPECT_EQ(errorsOf(view("type=\"number\" keyPath=\"layr.cornerRadius\">" + number)),
              place + "UIView has no part \"layr\"");
    EXPECT_EQ(errorsOf(view("type=\"number\" keyPath=\"layer.radius\">" + number)).substr(0, place.size() + 27),
              place + "CALayer has no key \"radius\"");
    EXPECT_EQ(errorsOf(view("type=\"string\" keyPath=\"cornerRadius\" value=\"2\">")),
              place + "the key \"cornerRadius\" of UIView does not take a string");
    EXPECT_EQ(errorsOf(view("type=\"number\" keyPath=\"cornerRadius\" value=\"2\">")),
              place + "the value is missing or of another type than number");
    EXPECT_EQ(errorsOf(view("type=\"boolean\" keyPath=\"hidden\" value=\"1\">")),
              place + "value is \"1\", YES or NO is expected");
    EXPECT_EQ(errorsOf(view("type=\"range\" keyPath=\"hidden\">")),
              place + "values of the type \"range\" are not supported");
    EXPECT_EQ(errorsOf(view("type=\"number\" keyPath=\"\">" + number)), place + "UIView has no key \"\"");
}

TEST_F(NibErrors, NameConstraintsThatMakeNoSense) {
    const auto constraint = [](const std::string& attributes) {
        return "<view id=\"v\"><subviews><view id=\"w\"/></subviews><constraints>\n<constraint " + attributes +
               " id=\"k\"/></constraints></view><view id=\"other\"/>";
    };
    const std::string place = "Test.xib:4:1: error: <constraint id=\"k\">: ";
    EXPECT_EQ(errorsOf(constraint("firstItem=\"w\" firstAttribute=\"widht\"")),
              place + "firstAttribute is \"widht\", a layout attribute is expected; did you mean width?");
    EXPECT_EQ(errorsOf(constraint("firstItem=\"x\" firstAttribute=\"width\"")),
              place + "firstItem: no object has the id \"x\"");
    EXPECT_EQ(
        errorsOf(constraint("firstItem=\"w\" firstAttribute=\"top\" secondItem=\"other\" secondAttribute=\"top\"")),
        place + "the constraint reaches outside the view that holds it");
    EXPECT_EQ(errorsOf(constraint("firstAttribute=\"width\" relation=\"atLeast\"")),
              place + "relation is \"atLeast\", one of equal, lessThanOrEqual, greaterThanOrEqual is expected");
    EXPECT_EQ(errorsOf(constraint("firstAttribute=\"width\" multiplier=\"1:0\"")),
              place + "multiplier is \"1:0\", a number or a ratio is expected");
    EXPECT_EQ(errorsOf(constraint("firstAttribute=\"width\" priority=\"1001\"")),
              place + "priority is 1001, 1 to 1000 is expected");
    EXPECT_EQ(errorsOf(constraint("firstAttribute=\"width\" constant=\"inf\"")),
              place + "constant is \"inf\", a number is expected");
}

TEST_F(NibErrors, AreAllToldAtOnce) {
    EXPECT_EQ(errorsOf("<view hidden=\"1\"><subviews>\n<lable/>\n<view customClass=\"Nothing12345\"/></subviews>\n"
                       "<constraints><constraint firstAttribute=\"x\" id=\"k\"/></constraints></view>"),
              "Test.xib:3:1: error: <view>: hidden is \"1\", YES or NO is expected\n"
              "Test.xib:4:1: error: <lable>: unknown element; did you mean label?\n"
              "Test.xib:5:1: error: <view>: there is no class \"Nothing12345\"\n"
              "Test.xib:6:14: error: <constraint id=\"k\">: firstAttribute is \"x\", a layout attribute is expected");
}

TEST_F(NibErrors, AreNotMadeOfUnknownAttributesAndChildren) {
    EXPECT_EQ(errorsOf("<label text=\"a\" sparkle=\"YES\"><glitter/><nil key=\"highlightedColor\"/></label>"), "");
}

TEST_F(NibErrors, TellOfAMissingFileAndOfAStoryboardInItsPlace) {
    const Result<Objects> missing = instantiate("Nothing");
    ASSERT_FALSE(missing);
    EXPECT_EQ(withoutFolder(missing.error()).substr(0, 19), "Nothing.xib: error:");
    write("Board.xib", storyboardWith("", ""));
    const Result<Objects> storyboard = instantiate("Board");
    ASSERT_FALSE(storyboard);
    EXPECT_EQ(withoutFolder(storyboard.error()), "Board.xib: error: a storyboard stands where a nib is expected");
}

} // namespace
