#include "simulator/live/LiveScreen.h"
#include "game/CategoriesVC.h"
#include "simulator/conversation/ScreenNarrator.h"
#include "simulator/live/PendingPicture.h"
#include "simulator/pictures/ScreenPicture.h"
#include "tests/simulator/SimulatorFixtures.h"

#include <random>

namespace {

/// Does with picture messages what the page does, with the page's own arithmetic.
class PagePicture {
public:
    void apply(const std::vector<std::uint8_t>& message) {
        m_message = &message;
        m_at = 1;
        whole = number(1) == 1;
        const int width = number(2);
        const int height = number(2);
        if (!bitmap || bitmap->width() != width || bitmap->height() != height) {
            bitmap.emplace(width, height);
        }
        m_at += 4;
        for (int count = number(2); count > 0; --count) {
            const PixelRect area = rect();
            bitmap->scrollRows(area, static_cast<std::int16_t>(number(2)));
        }
        painted = 0;
        for (int count = number(2); count > 0; --count) {
            paint(rect());
        }
        EXPECT_EQ(m_at, message.size());
    }

    std::optional<Bitmap> bitmap;
    bool whole = false;
    std::size_t painted = 0;

private:
    int number(int bytes) {
        int value = 0;
        for (int i = 0; i < bytes; ++i) {
            value |= m_message->at(m_at++) << (8 * i);
        }
        return value;
    }
    PixelRect rect() {
        const int x = number(2);
        const int y = number(2);
        const int width = number(2);
        return {x, y, width, number(2)};
    }
    void paint(const PixelRect& rect) {
        painted += rect.area();
        for (int y = rect.y; y < rect.y + rect.height; ++y) {
            for (int x = rect.x; x < rect.x + rect.width; ++x, m_at += 4) {
                const std::uint8_t* const pixel = m_message->data() + m_at;
                bitmap->row(y)[x] = static_cast<std::uint32_t>(pixel[0]) << 16 |
                                    static_cast<std::uint32_t>(pixel[1]) << 8 | pixel[2] |
                                    static_cast<std::uint32_t>(pixel[3]) << 24;
            }
        }
    }

    const std::vector<std::uint8_t>* m_message = nullptr;
    std::size_t m_at = 0;
};

class LiveScreenTest : public ConversationTest {
protected:
    void draw() {
        const ScreenChange change = screen.update();
        pending.add(change, {0, 0, screen.bitmap().width(), screen.bitmap().height()});
    }
    void send() { page.apply(pending.take(screen.bitmap(), ++number)); }
    UITableView& list() { return *shownCategoryScreen(*host)->tableView; }
    void scrollBy(CGFloat distance) { list().setContentOffset({0, list().contentOffset().y + distance}); }
    void open() {
        host->activate(nullptr);
        host->advance(std::chrono::milliseconds(600));
    }
    void act(int choice, int distance) {
        if (choice == 0) {
            host->isOpen() ? host->close() : open();
        } else if (choice == 1) {
            host->arrive({"A", "Message " + std::to_string(distance), std::nullopt});
            screen.conversationChanged();
        } else if (choice == 2) {
            host->window().setUserInterfaceStyle(distance % 2 == 0 ? UIUserInterfaceStyle::dark
                                                                   : UIUserInterfaceStyle::light);
        } else if (choice == 3) {
            host->changeStyle(distance % 2 == 0 ? MSMessagesAppPresentationStyle::compact
                                                : MSMessagesAppPresentationStyle::expanded);
        } else if (choice == 4 && host->isOpen()) {
            list().setHidden(!list().isHidden());
        } else if (host->isOpen()) {
            scrollBy(distance);
        }
    }

    LiveScreen screen{*host};
    PendingPicture pending;
    PagePicture page;
    std::uint32_t number = 0;
};

} // namespace

TEST_F(LiveScreenTest, IsThePictureOfTheScreenAtAllTimesAndSoIsAPageThatGetsOnlyChanges) {
    std::mt19937 random(7); // NOLINT: the same road every time
    open();
    for (int step = 0; step < 60; ++step) {
        const int choice = static_cast<int>(random() % 16);
        act(choice, static_cast<int>(random() % 121) - 60);
        draw();
        if (random() % 3 != 0) { // or the page is slow, and changes are joined
            send();
            ASSERT_TRUE(screen.bitmap() == takePicture(*host, PictureExtent::screen)) << step << " did " << choice;
            ASSERT_TRUE(*page.bitmap == screen.bitmap()) << step << " did " << choice;
        }
    }
}

TEST_F(LiveScreenTest, AScrolledFrameSendsAMoveAndAStrip) {
    open();
    draw();
    send();
    EXPECT_TRUE(page.whole);
    scrollBy(20);
    draw();
    scrollBy(20);
    draw();
    send();
    EXPECT_FALSE(page.whole);
    const std::size_t strip = 393u * 3u * 40u * 3u;
    EXPECT_GE(page.painted, strip / 2);
    EXPECT_LE(page.painted, strip * 3) << "the strip, the button above the list and the home indicator";
    EXPECT_TRUE(*page.bitmap == screen.bitmap());
    draw();
    EXPECT_TRUE(pending.isEmpty()) << "nothing moves, nothing is sent";
}
