#pragma once

#include "simulator/conversation/ConversationHost.h"
#include "simulator/findings/Finding.h"

#include <string>
#include <vector>

/// What came of playing one flow.
struct FlowResult {
    std::string file;
    std::string name;
    std::string device;
    std::vector<Event> events;
    std::vector<std::string> debugLines;
    std::vector<ConversationHost::OpenedLink> links;
    std::vector<ConversationHost::StyleRequest> styleRequests;
    std::vector<Finding> failures; // empty: the flow passed
};
