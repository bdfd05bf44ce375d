#include "simulator/parlor/FlowComposer.h"

#include "content/CurrentOption.h"
#include "game/CategoriesVC.h"
#include "platform/foundation/FatalError.h"
#include "platform/uikit/table/UITableViewCell.h"
#include "simulator/conversation/Finger.h"
#include "simulator/conversation/ScreenNarrator.h"
#include "simulator/flows/FlowPlayer.h"
#include "simulator/flows/FlowReader.h"

#include <iterator>

namespace {

std::optional<Failure> tapFirst(FlowPlayer& player) {
    const CategoriesVC* screen = shownCategoryScreen(player.host());
    const auto cells =
        screen != nullptr ? screen->tableView->visibleCells() : std::vector<std::shared_ptr<UITableViewCell>>();
    if (cells.empty()) {
        player.host().note("tap", "there is no mode to tap");
        return std::nullopt;
    }
    const std::optional<CGPoint> point = ScreenElement(player.host().window(), cells.front()).pointToTouch();
    if (!point) {
        return Failure{"the first mode cannot be tapped"};
    }
    player.host().note("tap", "tapped the first mode");
    Finger(player.host()).tap(*point);
    return std::nullopt;
}

} // namespace

FlowComposer::FlowComposer(const std::string& beginning) {
    m_flow.file = "parlor";
    m_flow.name = m_flow.file;
    add(beginning);
}

void FlowComposer::add(const std::string& commands) {
    Findings findings;
    std::optional<Flow> read = readFlow(commands, m_flow.file, findings);
    if (!read) {
        fatalError("a command's own flow cannot be read: " + describeErrors(findings));
    }
    m_flow.steps.insert(m_flow.steps.end(), std::make_move_iterator(read->steps.begin()),
                        std::make_move_iterator(read->steps.end()));
}

void FlowComposer::choose(const std::string& group) {
    if (group != rawValue(CurrentOption::Adult_18_Plus)) {
        openDropdown();
        add("- scrollUntilVisible: \"" + group + "\"\n- tapOn: \"" + group + "\"\n"); // a low screen shows two of them
    }
}

void FlowComposer::tapFirstMode() {
    addStep("tap", tapFirst);
}
