#pragma once

#include "platform/foundation/Finding.h"
#include "simulator/conversation/ConversationHost.h"

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
    Findings failures; // empty: the flow passed
};
