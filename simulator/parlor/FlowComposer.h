#pragma once

#include "simulator/flows/Flow.h"

/// Composes the flow that a command makes for itself: commands as text and steps as code, in the order they are added.
class FlowComposer {
public:
    /// Begins by opening the extension and letting it become expanded.
    explicit FlowComposer(const std::string& beginning = "- launchApp\n- wait: 600\n");

    /// Commands as a flow file has them, which must be good.
    void add(const std::string& commands);
    void addStep(std::string name, FlowAction run) {
        m_flow.steps.push_back({m_flow.file, {}, std::move(name), std::move(run)});
    }
    /// Shows another group than the first by tapping.
    void choose(const std::string& group);
    /// A list without modes has nothing to tap, which is no failure.
    void tapFirstMode();
    void openDropdown() { add("- tapOn: {id: btnDropdown}\n"); }

    [[nodiscard]] const Flow& flow() const { return m_flow; }

private:
    Flow m_flow;
};
