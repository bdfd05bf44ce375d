#pragma once

#include "simulator/flows/Flow.h"

#include <functional>
#include <string>

/// A flow that a command makes for itself: commands as text and steps as code, in the order they are added.
class ScreenScript {
public:
    /// Opens the extension and lets it become expanded.
    ScreenScript();

    /// Commands as a flow file has them, which must be good.
    void add(const std::string& commands);
    void addStep(std::string name, std::function<Outcome(FlowPlayer&)> run);
    /// Shows another group than the first by tapping.
    void choose(const std::string& group);
    void openDropdown() { add("- tapOn: {id: btnDropdown}\n"); }

    [[nodiscard]] const Flow& flow() const { return m_flow; }

private:
    Flow m_flow;
};
