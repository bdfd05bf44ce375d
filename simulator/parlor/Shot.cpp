#include "simulator/parlor/Shot.h"

#include "game/CategoriesVC.h"
#include "simulator/conversation/ScreenNarrator.h"
#include "simulator/flows/FlowPlayer.h"
#include "simulator/parlor/FlowComposer.h"

#include <cstdlib>
#include <limits>

namespace {

/// Rows that were never seen have estimated heights until the list gets there.
CGFloat endOf(UITableView& list) {
    CGFloat before = -1;
    while (list.contentOffset().y != before) {
        before = list.contentOffset().y;
        list.setContentOffset({0, std::numeric_limits<CGFloat>::max()});
        list.layoutIfNeeded();
    }
    return before;
}

void scrollModes(ConversationHost& host, const std::string& scroll) {
    const CategoriesVC* screen = shownCategoryScreen(host);
    if (screen == nullptr) {
        return;
    }
    UITableView& list = *screen->tableView;
    const CGFloat start = list.contentOffset().y;
    if (scroll == "end" || scroll == "middle") {
        const CGFloat end = endOf(list);
        list.setContentOffset({0, scroll == "end" ? end : (start + end) / 2});
    } else {
        list.setContentOffset({0, start + std::strtod(scroll.c_str(), nullptr)});
    }
}

FlowComposer composerFor(const Shot& shot, const std::function<void(ConversationHost&)>& look) {
    FlowComposer flow;
    flow.choose(shot.group.value_or(groupFor(shot.content.value_or(""))));
    if (shot.dark) {
        flow.add("- setAppearance: dark\n");
    }
    flow.add("- setStyle: " + shot.style + "\n");
    flow.addStep("scroll", [scroll = shot.scroll](FlowPlayer& player) {
        scrollModes(player.host(), scroll);
        return std::nullopt;
    });
    if (shot.openDropdown) {
        flow.openDropdown();
    }
    if (shot.tapFirst) {
        flow.tapFirstMode();
    }
    flow.addStep("look", [&look](FlowPlayer& player) {
        look(player.host());
        return std::nullopt;
    });
    return flow;
}

/// A word as a shell takes it for itself.
std::string quoted(const std::string& word) {
    const std::string harmless = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_@%+=:,./-";
    if (!word.empty() && word.find_first_not_of(harmless) == std::string::npos) {
        return word;
    }
    std::string text = "'";
    for (const char character : word) {
        text += character == '\'' ? "'\\''" : std::string(1, character);
    }
    return text + "'";
}

} // namespace

std::string Shot::commandLine(const std::string& file) const {
    const Shot usual;
    std::string line = "./run shot";
    const auto add = [&line](const char* option, const std::string& value, bool isWanted) {
        line += isWanted ? std::string(" ") + option + (value.empty() ? "" : " " + quoted(value)) : "";
    };
    add("--bundle", bundle.string(), !bundle.empty());
    add("--device", device, !device.empty());
    add("--content", content.value_or(""), content.has_value());
    add("--group", group.value_or(""), group.has_value() && group != groupFor(content.value_or("")));
    add("--dark", "", dark);
    add("--text-size", textSize, textSize != usual.textSize);
    add("--right-to-left", "", rightToLeft);
    add("--style", style, style != usual.style);
    add("--open-dropdown", "", openDropdown);
    add("--scroll", scroll, scroll != usual.scroll);
    add("--tap-first", "", tapFirst);
    add("--bare", "", bare);
    add("-o", file, true);
    return line;
}

Findings playShot(const Shot& shot, const PreparedBundle& bundle, const std::function<void(ConversationHost&)>& look) {
    const FlowComposer composer = composerFor(shot, look);
    bundle.openFor(composer.flow());
    return FlowPlayer(composer.flow(), bundle.deviceFor(composer.flow())).play().failures;
}
