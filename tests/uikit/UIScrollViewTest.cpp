#include "platform/uikit/UIScrollView.h"

#include "platform/uikit/UIEvent.h"
#include "platform/uikit/UIScreen.h"
#include "platform/uikit/UITouch.h"
#include "platform/uikit/UIWindow.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

class UIScrollViewTest : public testing::Test {
protected:
    UIScrollViewTest() {
        UIScreen::mainScreen().configure({300, 400}, 3);
        m_window = std::make_shared<UIWindow>(CGRect{{}, {300, 400}});
        m_view = std::make_shared<UIScrollView>(CGRect{{0, 50}, {300, 200}});
        m_window->addSubview(m_view);
        m_view->setContentSize({300, 1000});
    }
    void touch(UITouchPhase phase, CGPoint point) {
        m_finger->moveTo(point, phase);
        UIEvent event{{m_finger}};
        m_window->sendEvent(event);
    }
    [[nodiscard]] CGFloat offset() const { return m_view->contentOffset().y; }

    std::shared_ptr<UIWindow> m_window;
    std::shared_ptr<UIScrollView> m_view;
    std::shared_ptr<UITouch> m_finger = std::make_shared<UITouch>(CGPoint{});
};

} // namespace

TEST_F(UIScrollViewTest, ShowsContentAndInsetsOnly) {
    m_view->setContentOffset({0, 5000});
    EXPECT_EQ(offset(), 800);
    m_view->setContentOffset({40, -30});
    EXPECT_EQ(m_view->contentOffset(), (CGPoint{0, 0}));
    m_view->setContentInset({10, 0, 80, 0});
    m_view->setContentOffset({0, 5000});
    EXPECT_EQ(offset(), 880);
    m_view->setContentOffset({0, std::numeric_limits<CGFloat>::quiet_NaN()});
    EXPECT_EQ(offset(), 0);
}

TEST_F(UIScrollViewTest, BeginsBelowItsTopInset) {
    m_view->setContentInset({10, 0, 80, 0});
    EXPECT_EQ(offset(), -10);
    m_view->setContentOffset({0, 100});
    m_view->setContentInset({20, 0, 80, 0});
    EXPECT_EQ(offset(), 100) << "content that was scrolled stays";
}

TEST_F(UIScrollViewTest, StaysWithinContentThatShrinksAndAViewThatGrows) {
    m_view->setContentOffset({0, 800});
    m_view->setContentSize({300, 600});
    EXPECT_EQ(offset(), 400);
    m_view->setFrame({{0, 50}, {300, 350}});
    m_window->layoutIfNeeded();
    EXPECT_EQ(offset(), 250);
    m_view->setContentSize({300, 100});
    EXPECT_EQ(offset(), 0);
}

TEST_F(UIScrollViewTest, StopsOnDevicePixels) {
    m_view->setContentOffset({0, 10.1});
    EXPECT_DOUBLE_EQ(offset(), 10);
    m_view->setContentOffset({0, 10.2});
    EXPECT_DOUBLE_EQ(offset(), 31.0 / 3);
}

TEST_F(UIScrollViewTest, FollowsTheFingerOnceItMovedMoreThanATap) {
    m_view->setContentOffset({0, 300});
    touch(UITouchPhase::began, {100, 150});
    touch(UITouchPhase::moved, {100, 141});
    EXPECT_FALSE(m_view->isDragging());
    EXPECT_EQ(offset(), 300);
    touch(UITouchPhase::moved, {100, 110});
    EXPECT_TRUE(m_view->isDragging());
    EXPECT_EQ(offset(), 340);
    touch(UITouchPhase::moved, {100, 148});
    EXPECT_EQ(offset(), 302) << "also when it comes back";
    touch(UITouchPhase::moved, {100, 5000});
    EXPECT_EQ(offset(), 0);
    touch(UITouchPhase::ended, {100, 5000});
    EXPECT_FALSE(m_view->isDragging());
}

TEST_F(UIScrollViewTest, IgnoresASecondFingerAndStaysWhenItMayNotScroll) {
    touch(UITouchPhase::began, {100, 150});
    const auto second = std::make_shared<UITouch>(CGPoint{200, 200});
    UIEvent began{{second}};
    m_window->sendEvent(began);
    second->moveTo({200, 100}, UITouchPhase::moved);
    UIEvent moved{{second}};
    m_window->sendEvent(moved);
    EXPECT_EQ(offset(), 0);
    m_view->setScrollEnabled(false);
    touch(UITouchPhase::moved, {100, 100});
    EXPECT_EQ(offset(), 0);
}
