#include "platform/uikit/controls/UITextField.h"

#include "tests/uikit/ViewFixture.h"

namespace {

struct Gatekeeper : UITextFieldDelegate {
    bool textFieldShouldChangeCharactersInRangeReplacementString(UITextField&, NSRange range,
                                                                 const std::string& replacement) override {
        asked.push_back({range, replacement});
        return agrees;
    }
    bool textFieldShouldReturn(UITextField& field) override { return field.resignFirstResponder(); }

    std::vector<std::pair<NSRange, std::string>> asked;
    bool agrees = true;
};

class UITextFieldTest : public support::OnScreen {
protected:
    UITextFieldTest() { field->setDelegate(gatekeeper); }

    std::shared_ptr<UITextField> field = add(std::make_shared<UITextField>(CGRectMake(0, 0, 100, 40)));
    std::shared_ptr<Gatekeeper> gatekeeper = std::make_shared<Gatekeeper>();
};

TEST_F(UITextFieldTest, TypingAppendsAfterTheDelegateAgrees) {
    EXPECT_TRUE(field->insertText("a😀"));
    EXPECT_TRUE(field->insertText("b"));
    EXPECT_EQ(field->text(), "a😀b");
    EXPECT_EQ(gatekeeper->asked.back(), (std::pair{NSMakeRange(3, 0), std::string("b")}));
    gatekeeper->agrees = false;
    EXPECT_FALSE(field->insertText("c"));
    EXPECT_EQ(field->text(), "a😀b");
}

TEST_F(UITextFieldTest, ATouchOpensTheKeyboardAndReturnClosesIt) {
    const auto other = add(std::make_shared<UITextField>(CGRectMake(0, 50, 100, 40)));
    tap({10, 10});
    EXPECT_TRUE(field->isFirstResponder());
    tap({10, 60});
    EXPECT_EQ(UIResponder::firstResponder(), other);
    tap({10, 10});
    field->pressReturn();
    EXPECT_EQ(UIResponder::firstResponder(), nullptr);
    tap({10, 10});
    field->removeFromSuperview();
    EXPECT_EQ(UIResponder::firstResponder(), nullptr);
}

} // namespace
