#include "simulator/pictures/BackdropViews.h"
#include "simulator/pictures/ConversationBackdrop.h"

#include <array>
#include <cmath>
#include <string>

namespace {

struct Message {
    std::string from; // nobody: the player
    std::string text;
    std::string identifier = {}; // of a bubble that can be touched
};

const std::array earlierMessages{
    Message{"Mia", "Game night at my place on Friday?"},
    Message{"", "Count me in, I’ll bring snacks"},
    Message{"Theo", "Then I’ll bring the questions 😄"},
    Message{"Mia", "Truth or dare?"},
    Message{"", "Dare. Always dare."},
    Message{"Theo", "Open the game, you’re first 🎲"},
};

constexpr CGFloat edge = 16;     // from the screen's side to a bubble
constexpr CGFloat paddingX = 14; // from a bubble's side to its text
constexpr CGFloat paddingY = 8;  // the same above and below
constexpr CGFloat betweenPeople = 10;
constexpr CGFloat bubbleRadius = 18;

/// A bubble with the sender's name above it, as wide as the transcript.
std::shared_ptr<UIView> makeRow(const Message& message, CGFloat width) {
    const bool mine = message.from.empty();
    const auto text = caption(message.text, 17, UIFontWeight::regular,
                              mine ? UIColor::whiteColor() : systemColor("labelColor"), std::floor(width * 0.68));
    const CGSize size{text->bounds().size.width + 2 * paddingX, text->bounds().size.height + 2 * paddingY};
    auto row = std::make_shared<UIView>();
    CGFloat top = 0;
    if (!mine) {
        const auto name = caption(message.from, 11, UIFontWeight::regular, quietColor());
        name->setFrame(name->bounds().offsetBy(edge + paddingX, 0));
        top = name->frame().maxY() + 2;
        row->addSubview(name);
    }
    const auto bubble = area(CGRectMake(mine ? width - edge - size.width : edge, top, size.width, size.height),
                             systemColor(mine ? "systemBlueColor" : "systemGray5Color"), bubbleRadius);
    text->setFrame(text->bounds().offsetBy(paddingX, paddingY));
    bubble->setAccessibilityIdentifier(message.identifier);
    bubble->setAccessibilityLabel(message.identifier.empty() ? "" : message.text);
    bubble->addSubview(text);
    row->addSubview(bubble);
    row->setFrame(CGRectMake(0, 0, width, bubble->frame().maxY()));
    return row;
}

/// What a bubble with a link shows when nothing was written with it.
std::string textOf(const ArrivedMessage& message) {
    return message.text.empty() ? "Your turn in Truths & Dares" : message.text;
}

std::vector<Message> withEarlierMessages(const std::vector<ArrivedMessage>& arrived) {
    std::vector<Message> all(earlierMessages.begin(), earlierMessages.end());
    for (const ArrivedMessage& message : arrived) {
        const std::size_t index = all.size() - earlierMessages.size();
        all.push_back({message.from, textOf(message), message.link ? bubbleIdentifier + std::to_string(index) : ""});
    }
    return all;
}

} // namespace

std::shared_ptr<UIView> makeTranscript(const CGRect& frame, const std::vector<ArrivedMessage>& arrived) {
    const std::vector<Message> messages = withEarlierMessages(arrived);
    auto transcript = area(frame, systemColor("systemBackgroundColor"));
    CGFloat bottom = frame.size.height - 12;
    for (auto message = messages.rbegin(); message != messages.rend(); ++message) {
        const auto row = makeRow(*message, frame.size.width);
        const CGFloat height = row->bounds().size.height;
        if (bottom - height < betweenPeople) {
            return transcript;
        }
        row->setFrame(row->bounds().offsetBy(0, bottom - height));
        transcript->addSubview(row);
        bottom -= height + betweenPeople;
    }
    const auto day = caption("Today 9:38", 11, UIFontWeight::medium, quietColor());
    if (bottom - day->bounds().size.height >= betweenPeople) {
        centre(*day, {frame.size.width / 2, bottom - day->bounds().size.height / 2 - 4});
        transcript->addSubview(day);
    }
    return transcript;
}
