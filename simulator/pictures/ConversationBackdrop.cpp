#include "simulator/pictures/ConversationBackdrop.h"

#include "simulator/pictures/BackdropViews.h"

#include <algorithm>

namespace {

constexpr CGFloat inputHeight = 52;
constexpr CGFloat gripHeight = 16; // the strip above a compact extension by which it can be pulled up
constexpr CGSize grip{36, 5};

std::shared_ptr<UIView> makeGrip(CGPoint middle) {
    const auto view = area({{0, 0}, grip}, systemColor("systemGray3Color"), grip.height / 2);
    view->setFrame(CGRectMake(middle.x - grip.width / 2, middle.y - grip.height / 2, grip.width, grip.height));
    view->setAccessibilityIdentifier(handleIdentifier);
    view->setAccessibilityLabel("Handle of the extension");
    return view;
}

std::shared_ptr<UIView> makeHairline(const Device& device, CGFloat y) {
    return area(CGRectMake(0, y, device.size.width, 1.0 / device.scale), systemColor("opaqueSeparatorColor"));
}

bool isMirrored(const Device& device) {
    return device.direction == UIUserInterfaceLayoutDirection::rightToLeft;
}

std::shared_ptr<UIView> makeBackChevron(const Device& device, CGFloat middle) {
    auto chevron = std::make_shared<GlyphView>(CGRectMake(14, middle - 10, 12, 20), systemColor("systemBlueColor"));
    const CGFloat tip = isMirrored(device) ? 10 : 2;
    CGPath path;
    path.moveTo({12 - tip, 2});
    path.addLineTo({tip, 10});
    path.addLineTo({12 - tip, 18});
    chevron->addLine(std::move(path), 2.5);
    return chevron;
}

/// Who the conversation is with: picture, name and how many they are, side by side around the middle of the bar.
std::shared_ptr<UIView> makePeople(CGPoint middle) {
    constexpr CGFloat diameter = 36;
    constexpr CGFloat gap = 8;
    const auto name = caption("Friday Crew", 17, UIFontWeight::semibold, systemColor("labelColor"));
    const auto count = caption("Mia, Theo and you", 11, UIFontWeight::regular, quietColor());
    const auto picture = area(CGRectMake(0, 0, diameter, diameter), systemColor("systemIndigoColor"), diameter / 2);
    const auto initials = caption("FC", 13, UIFontWeight::semibold, UIColor::whiteColor());
    centre(*initials, {diameter / 2, diameter / 2});
    picture->addSubview(initials);

    const CGFloat textHeight = name->bounds().size.height + count->bounds().size.height;
    const CGFloat textTop = (diameter - textHeight) / 2;
    name->setFrame(name->bounds().offsetBy(diameter + gap, textTop));
    count->setFrame(count->bounds().offsetBy(diameter + gap, name->frame().maxY()));
    auto people =
        std::make_shared<UIView>(CGRectMake(0, 0, std::max(name->frame().maxX(), count->frame().maxX()), diameter));
    for (const std::shared_ptr<UIView>& part :
         {std::shared_ptr<UIView>(picture), std::shared_ptr<UIView>(name), std::shared_ptr<UIView>(count)}) {
        people->addSubview(part);
    }
    centre(*people, middle);
    return people;
}

std::shared_ptr<UIView> makeInputRow(const Device& device, CGFloat top) {
    const CGFloat width = device.size.width;
    auto row = area(CGRectMake(0, top, width, inputHeight), systemColor("systemBackgroundColor"));
    const auto add = area(CGRectMake(12, 9, 34, 34), systemColor("systemGray5Color"), 17);
    const auto plus = std::make_shared<GlyphView>(CGRectMake(0, 0, 34, 34), systemColor("systemGrayColor"));
    plus->addShape(CGPath::withRoundedRect(CGRectMake(10, 15.75, 14, 2.5), 1.25));
    plus->addShape(CGPath::withRoundedRect(CGRectMake(15.75, 10, 2.5, 14), 1.25));
    add->setAccessibilityIdentifier(extensionButtonIdentifier);
    add->setAccessibilityLabel("Truths & Dares");
    add->addSubview(plus);
    row->addSubview(add);

    const auto field = area(CGRectMake(56, 8, width - 56 - 16, 36), systemColor("systemBackgroundColor"), 18);
    field->layer()->setBorderWidth(1);
    field->layer()->setBorderColor(systemColor("systemGray4Color"));
    const auto prompt = caption("Message", 17, UIFontWeight::regular, quietColor());
    prompt->setFrame(prompt->bounds().offsetBy(14, (36 - prompt->bounds().size.height) / 2));
    field->addSubview(prompt);
    row->addSubview(field);
    return row;
}

void addMessages(UIView& screen, const ConversationHost& host, CGFloat top, CGFloat bottom) {
    const CGFloat inputTop = bottom - inputHeight;
    screen.addSubview(makeTranscript(CGRectMake(0, top, host.device().size.width, std::max(0.0, inputTop - top)),
                                     host.arrivedMessages()));
    screen.addSubview(makeInputRow(host.device(), inputTop));
}

void addCompactParts(UIView& screen, const ConversationHost& host, CGFloat barBottom) {
    const Device& device = host.device();
    const CGFloat gripTop = device.compactFrame().minY() - gripHeight;
    addMessages(screen, host, barBottom, gripTop);
    screen.addSubview(area(CGRectMake(0, gripTop, device.size.width, gripHeight), systemColor("systemGray6Color")));
    screen.addSubview(makeHairline(device, gripTop));
    screen.addSubview(makeGrip({device.size.width / 2, gripTop + gripHeight / 2}));
}

std::shared_ptr<UIView> makeHomeIndicator(const Device& device) {
    if (device.safeArea.bottom <= 0) {
        return nullptr;
    }
    constexpr CGFloat height = 5;
    const CGFloat width = device.size.width * 0.36;
    return area(CGRectMake((device.size.width - width) / 2, device.size.height - 8 - height, width, height),
                systemColor("labelColor"), height / 2);
}

std::shared_ptr<UIView> makeScreen(const ConversationHost& host) {
    const Device& device = host.device();
    const bool expanded = host.isOpen() && host.style() == MSMessagesAppPresentationStyle::expanded;
    const CGFloat width = device.size.width;
    const CGFloat barTop = device.safeArea.top;
    const CGFloat barBottom = device.expandedFrame().minY();
    const CGFloat row = expanded ? barTop + 20 : (barTop + barBottom) / 2;
    auto screen = area(CGRectMake(0, 0, width, device.size.height), systemColor("systemBackgroundColor"));
    if (!host.isOpen()) {
        addMessages(*screen, host, barBottom, device.size.height - device.safeArea.bottom);
    } else if (!expanded) {
        addCompactParts(*screen, host, barBottom);
    }
    screen->addSubview(area(CGRectMake(0, 0, width, barBottom), systemColor("secondarySystemBackgroundColor")));
    screen->addSubview(makeStatusBar(device));
    screen->addSubview(makeBackChevron(device, row));
    screen->addSubview(makePeople({width / 2, row}));
    if (expanded) {
        screen->addSubview(makeGrip({width / 2, barBottom - 7.5}));
    } else {
        screen->addSubview(makeHairline(device, barBottom - 1.0 / device.scale));
    }
    return screen;
}

} // namespace

ConversationBackdrop makeConversation(const ConversationHost& host) {
    const Device& device = host.device();
    ConversationBackdrop conversation{makeScreen(host),
                                      host.openedLink() ? makeHandOverCard(device, *host.openedLink()) : nullptr,
                                      makeHomeIndicator(device)};
    if (isMirrored(device)) {
        mirror(*conversation.behind);
    }
    return conversation;
}
