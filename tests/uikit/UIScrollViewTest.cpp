#include "platform/uikit/controls/UIScrollView.h"

#include "tests/uikit/ViewFixture.h"

#include <limits>

namespace {

class UIScrollViewTest : public support::OnScreen {
protected:
    UIScrollViewTest() { m_view->setContentSize({320, 1000}); }
    [[nodiscard]] CGFloat offset() const { return m_view->contentOffset().y; }
    CGFloat scrolledTo(CGFloat y) {
        m_view->setContentOffset({0, y});
        return offset();
    }

    std::shared_ptr<UIScrollView> m_view = add(std::make_shared<UIScrollView>(CGRectMake(0, 50, 320, 200)));
};

} // namespace

TEST_F(UIScrollViewTest, StaysWithinItsContentAndInsets) {
    EXPECT_EQ(scrolledTo(10.4), 10.5) << "on device pixels";
    EXPECT_EQ(scrolledTo(5000), 800);
    m_view->setContentOffset({40, -30});
    EXPECT_EQ(m_view->contentOffset(), (CGPoint{0, 0}));
    m_view->setContentInset({10, 0, 80, 0});
    EXPECT_EQ(offset(), -10) << "begins below its top inset";
    EXPECT_EQ(scrolledTo(std::numeric_limits<CGFloat>::quiet_NaN()), 0);
    EXPECT_EQ(scrolledTo(5000), 880);
    m_view->setContentInset({20, 0, 0, 0});
    EXPECT_EQ(offset(), 800);
    m_view->setContentSize({320, 600});
    EXPECT_EQ(offset(), 400);
    m_view->setFrame(CGRectMake(0, 50, 320, 350));
    window->layoutIfNeeded();
    EXPECT_EQ(offset(), 250);
}

TEST_F(UIScrollViewTest, FollowsTheFingerOnceItMovedMoreThanATap) {
    m_view->setContentOffset({0, 300});
    const auto finger = touchDown({100, 150});
    move(finger, {100, 141});
    EXPECT_FALSE(m_view->isDragging());
    EXPECT_EQ(offset(), 300);
    move(finger, {100, 110});
    EXPECT_TRUE(m_view->isDragging());
    EXPECT_EQ(offset(), 340);
    move(finger, {100, 148});
    EXPECT_EQ(offset(), 302) << "also when it comes back";
    move(touchDown({200, 200}), {200, 100});
    EXPECT_EQ(offset(), 302) << "a second finger does nothing";
    move(finger, {100, 5000});
    EXPECT_EQ(offset(), 0);
    lift(finger, {100, 5000});
    EXPECT_FALSE(m_view->isDragging());
}
