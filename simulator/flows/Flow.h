#pragma once

#include "platform/foundation/Result.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

class FlowPlayer;

/// Absent when a step did what it should.
using Outcome = std::optional<Failure>;

/// One command of a flow, ready to be played.
struct FlowStep {
    TextPlace place;
    std::string command;
    std::function<Outcome(FlowPlayer&)> run;
};

/// A bundle resource that the extension sees instead of the real one; no file means that it sees none.
struct ResourceOverride {
    std::string name; // with its extension, for example "Friends.json"
    std::optional<std::string> file;
};

/// A scripted visit to the conversation, as read from one file.
struct Flow {
    std::string file;
    std::string name;
    std::string device;                              // empty: the one the command line names
    std::string scene;                               // a developer scene in the extension's stead; empty: none
    std::vector<std::string> participants{"A", "B"}; // the other people in the conversation, in the host's order
    std::vector<ResourceOverride> overrides;
    std::vector<FlowStep> steps;
};
