#include "platform/interface/NibBuilder.h"
#include "platform/uikit/UIKitClasses.h"
#include "ui/AppView.h"
#include "ui/DrawingView.h"
#include "ui/UIView+Layer.h"
#include "ui/UiClasses.h"

#include <gtest/gtest.h>

namespace {

/// The first object of a nib whose second line gives the key `strokeColor` or another one this value.
class ColorKeys : public testing::Test {
protected:
    ColorKeys() {
        registerUIKitClasses();
        registerUiClasses();
    }

    template <class T>
    std::shared_ptr<T> make(const std::string& className, const std::string& attribute) {
        const InterfaceDocument::Loaded loaded = InterfaceDocument::parse(
            "A.xib", "<document type=\"com.apple.InterfaceBuilder3.CocoaTouch.XIB\"><objects><view customClass=\"" +
                         className + "\"><userDefinedRuntimeAttributes>\n<userDefinedRuntimeAttribute " + attribute +
                         "</userDefinedRuntimeAttribute></userDefinedRuntimeAttributes></view></objects></document>");
        NibBuilder builder(*loaded.value());
        const NibBuilder::Objects objects = builder.makeNib(nullptr);
        report = describeErrors(builder.findings());
        return std::dynamic_pointer_cast<T>(objects.at(0));
    }

    std::string report; // of the last making
};

const std::string unknown = R"(type="color" keyPath="strokeColor"><color key="value" name="Mauve"/>)";
const std::string place = "A.xib:2:1: error: <userDefinedRuntimeAttribute>: ";

TEST_F(ColorKeys, KeepTheColourWhereAFileGivesNone) {
    EXPECT_EQ(*make<DrawingView>("DrawingView", unknown)->strokeColor(), *UIColor::blackColor());
    EXPECT_EQ(report, place + R"(the key "strokeColor" of DrawingView does not take nil; there is no colour "Mauve")");
    EXPECT_EQ(*make<AppView>("AppView", R"(type="nil" keyPath="strokeColor">)")->strokeColor(), *UIColor::whiteColor());
    EXPECT_EQ(report, place + R"(the key "strokeColor" of AppView does not take nil)");
    EXPECT_TRUE(make<AppView>("AppView", R"(type="color" keyPath="strokeColor"><color key="value"/>)")->strokeColor());
    EXPECT_EQ(report, R"(A.xib:2:65: error: <color>: a colour needs a name, "white", or "red", "green" and "blue")");
}

TEST_F(ColorKeys, TakeAColourThatIsThereAndNoneWhereTheyMayBeAbsent) {
    const auto view =
        make<AppView>("AppView", R"(type="color" keyPath="strokeColor"><color key="value" white="0.5"/>)");
    EXPECT_EQ(view->strokeColor()->components(), (RGBA{0.5, 0.5, 0.5, 1}));
    EXPECT_FALSE(borderColorApp(*make<AppView>("AppView", R"(type="nil" keyPath="borderColorApp">)")));
    EXPECT_EQ(report, "");
}

} // namespace
