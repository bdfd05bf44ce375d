#include "simulator/commands/ContentFlow.h"

#include "game/CategoriesVC.h"
#include "platform/uikit/table/UITableViewCell.h"
#include "simulator/commands/ScreenScript.h"
#include "simulator/commands/Stage.h"
#include "simulator/conversation/Finger.h"
#include "simulator/conversation/Screen.h"
#include "simulator/flows/FlowPlayer.h"

namespace {

std::shared_ptr<UIView> firstMode(FlowPlayer& player) {
    for (const auto& child : player.host().controller()->childViewControllers()) {
        if (const auto* screen = dynamic_cast<const CategoriesVC*>(child.get())) {
            const auto cells = screen->tableView->visibleCells();
            return cells.empty() ? nullptr : std::shared_ptr<UIView>(cells.front());
        }
    }
    return nullptr;
}

/// A list without modes has nothing to tap, which is no failure.
Outcome tapFirstMode(FlowPlayer& player) {
    const std::shared_ptr<UIView> mode = firstMode(player);
    if (!mode) {
        player.host().note("tap", "there is no mode to tap");
        return std::nullopt;
    }
    const std::optional<CGPoint> point = ScreenElement(player.host().window(), mode).pointToTouch();
    if (!point) {
        return Failure{"the first mode cannot be tapped"};
    }
    player.host().note("tap", "tapped the first mode");
    Finger(player.host()).tap(*point);
    return std::nullopt;
}

} // namespace

Flow contentFlow(const std::string& content) {
    const std::string group = groupFor(content);
    ScreenScript script;
    script.choose(group);
    script.add("- takeScreenshot: content\n");
    script.addStep("tap", tapFirstMode);
    Flow flow = script.flow();
    flow.file = content;
    flow.name = "Your content, as the list of " + group;
    return flow;
}
