#include "simulator/commands/ScreenScript.h"

#include "content/CurrentOption.h"
#include "platform/foundation/FatalError.h"
#include "simulator/flows/FlowReader.h"

#include <iterator>

ScreenScript::ScreenScript() {
    m_flow.file = "pictures";
    m_flow.name = "pictures";
    add("- launchApp\n- wait: 600\n");
}

void ScreenScript::add(const std::string& commands) {
    FlowProblems problems(m_flow.file);
    std::optional<Flow> read = readFlow(commands, problems);
    if (!read) {
        fatalError("a command's own flow cannot be read: " + problems.findings().front().describe());
    }
    m_flow.steps.insert(m_flow.steps.end(), std::make_move_iterator(read->steps.begin()),
                        std::make_move_iterator(read->steps.end()));
}

void ScreenScript::addStep(std::string name, std::function<Outcome(FlowPlayer&)> run) {
    m_flow.steps.push_back({TextPlace(), std::move(name), std::move(run)});
}

void ScreenScript::choose(const std::string& group) {
    if (group != rawValue(CurrentOption::Adult_18_Plus)) {
        openDropdown();
        add("- tapOn: \"" + group + "\"\n");
    }
}
