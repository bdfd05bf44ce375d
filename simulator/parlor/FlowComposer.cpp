#include "simulator/parlor/FlowComposer.h"

#include "content/CurrentOption.h"
#include "platform/foundation/FatalError.h"
#include "simulator/flows/FlowReader.h"

#include <iterator>

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
        add("- tapOn: \"" + group + "\"\n");
    }
}
