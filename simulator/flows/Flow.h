#pragma once

#include "platform/foundation/Result.h"
#include "simulator/conversation/BundleSetup.h"

#include <functional>

class FlowPlayer;

/// What a command does; a failure when that did not come about.
using FlowAction = std::function<std::optional<Failure>(FlowPlayer&)>;

/// One command of a flow, ready to be played.
struct FlowStep {
    std::string file; // the flow's, or that of a flow which it runs
    TextPlace place;
    std::string name; // the label that it was given, or else the command
    FlowAction run;
    bool isOptional = false; // then its failure is none of the flow
};

using FlowSteps = std::vector<FlowStep>;

/// A scripted visit to the conversation, as read from one file.
struct Flow {
    std::string file;
    std::string name;
    std::string device;                              // empty: the one the command line names
    std::string scene;                               // a developer scene in the extension's stead; empty: none
    bool rightToLeft = false;                        // the direction of the phone's language
    std::vector<std::string> participants{"A", "B"}; // the other people in the conversation, in the host's order
    std::vector<ResourceOverride> overrides;
    FlowSteps steps;
};
