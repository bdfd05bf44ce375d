#include "simulator/conversation/ScreenElement.h"
#include "simulator/pictures/ConversationBackdrop.h"
#include "simulator/pictures/ScreenPicture.h"

#include "platform/foundation/NSExtensionContext.h"
#include "platform/foundation/NSURL.h"
#include "platform/uikit/controls/UILabel.h"
#include "tests/simulator/SimulatorFixtures.h"

#include <cmath>
#include <map>

namespace {

constexpr std::uint32_t chosenRow = 0xFF4DA289; // white stands on it by rule
constexpr std::uint32_t ownBubble = 0xFF007AFF; // the phone's own pairs of colours
constexpr std::uint32_t ownBubbleInDark = 0xFF0A84FF;

double luminance(const RGBA& color) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

double contrast(const RGBA& one, const RGBA& other) {
    const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

/// The pixel that is there most often: letters cover less than what they stand on.
std::uint32_t groundOf(const Bitmap& picture, const CGRect& frame) {
    std::map<std::uint32_t, int> counts;
    for (int y = static_cast<int>(frame.minY()); y < static_cast<int>(frame.maxY()); ++y) {
        for (int x = static_cast<int>(frame.minX()); x < static_cast<int>(frame.maxX()); ++x) {
            ++counts[picture.pixel(x, y)];
        }
    }
    return std::max_element(counts.begin(), counts.end(),
                            [](const auto& one, const auto& other) { return one.second < other.second; })
        ->first;
}

class TextContrastTest : public ConversationTest {
protected:
    void show(const std::string& state) {
        host->window().setUserInterfaceStyle(style);
        picture = takePicture(*host, PictureExtent::screen, 1);
        const ConversationBackdrop conversation = makeConversation(*host);
        const std::shared_ptr<UIView> backdrop = conversation.card ? conversation.card : conversation.behind;
        const CGPoint origin = conversation.card ? conversation.card->frame().origin : CGPoint{};
        examine(backdrop, state, [&](const std::shared_ptr<UILabel>& label) {
            return label->convertRectToView(label->bounds(), backdrop.get()).offsetBy(origin.x, origin.y);
        });
        const CGPoint window = host->window().frame().origin;
        examine(host->isOpen() ? host->controller()->view() : nullptr, state,
                [&](const std::shared_ptr<UILabel>& label) {
                    const ScreenElement element(host->window(), label);
                    return element.visibleShare() < 1 ? CGRect{} : element.frame().offsetBy(window.x, window.y);
                });
    }

    template <class FrameOf>
    void examine(const std::shared_ptr<UIView>& view, const std::string& state, FrameOf frameOf) {
        if (!view || view->isHidden()) {
            return;
        }
        if (const auto label = std::dynamic_pointer_cast<UILabel>(view); label && label->text()) {
            if (const CGRect frame = frameOf(label); frame.size.height >= 1) {
                judge(*label, groundOf(picture, frame), state);
            }
        }
        for (const std::shared_ptr<UIView>& inside : view->subviews()) {
            examine(inside, state, frameOf);
        }
    }

    void judge(const UILabel& label, std::uint32_t ground, const std::string& state) {
        if (ground == chosenRow || ground == ownBubble || ground == ownBubbleInDark) {
            return;
        }
        const auto part = [ground](int shift) { return ((ground >> shift) & 0xFFu) / 255.0; };
        EXPECT_GE(contrast(label.textColor()->resolved(style), {part(16), part(8), part(0), 1}), 4.5)
            << *label.text() << ", " << state << (style == UIUserInterfaceStyle::dark ? ", dark" : "");
        ++judged;
    }

    UIUserInterfaceStyle style = UIUserInterfaceStyle::light;
    Bitmap picture{1, 1};
    int judged = 0;
};

TEST_F(TextContrastTest, NamesHintsAndListsStandOutFromTheirGroundsInBothAppearances) {
    for (const UIUserInterfaceStyle appearance : {UIUserInterfaceStyle::light, UIUserInterfaceStyle::dark}) {
        style = appearance;
        show("before the extension is opened");
        host->activate(nullptr);
        host->settle();
        show("compact");
        host->advance(std::chrono::milliseconds(600));
        show("expanded");
        host->controller()->extensionContext()->openURLCompletionHandler(
            NSURL::URLWithString("https://truths.example/Category?mainCategory=Family&icon=a").value(), {});
        show("a link");
        host->forgetOpenedLink();
        host->close();
    }
    EXPECT_GT(judged, 80);
}

} // namespace
