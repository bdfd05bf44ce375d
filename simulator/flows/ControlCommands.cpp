#include "simulator/flows/FlowPlayer.h"
#include "simulator/flows/FlowReader.h"
#include "simulator/flows/FlowTable.h"
#include "simulator/flows/FlowValue.h"

#include <utility>

namespace {

/// What must be on the screen, and what must not.
struct Condition {
    std::optional<Selector> visible;
    std::optional<Selector> notVisible;

    [[nodiscard]] bool holds(const FlowPlayer& player) const {
        return (!visible || player.find(*visible)) && (!notVisible || !player.find(*notVisible));
    }
};

Condition conditionIn(const FlowValue& value) {
    Condition condition{value.find("visible", &FlowValue::selector), value.find("notVisible", &FlowValue::selector)};
    if (!condition.visible && !condition.notVisible) {
        value.complain("'visible' or 'notVisible' must say which element is meant");
    }
    return condition;
}

std::optional<Condition> conditionUnder(const FlowValue& value, const char* key) {
    const std::optional<FlowValue> condition = value.find(key);
    return condition ? std::optional(conditionIn(*condition)) : std::nullopt;
}

FlowAction makeExtendedWaitUntil(const FlowValue& value) {
    return [condition = conditionIn(value),
            timeout = value.find("timeout", &FlowValue::number)](FlowPlayer& player) -> std::optional<Failure> {
        const std::chrono::milliseconds time(timeout.value_or(FlowPlayer::patience.count()));
        if (player.waitUntil([&] { return condition.holds(player); }, time)) {
            return std::nullopt;
        }
        return condition.visible && !player.find(*condition.visible) ? player.missing(*condition.visible)
                                                                     : FlowPlayer::unwanted(*condition.notVisible);
    };
}

/// Ends early when a command fails: the next rounds would only fail likewise.
FlowAction makeRepeat(const FlowValue& value) {
    const auto condition = conditionUnder(value, "while");
    const auto times = value.find("times", &FlowValue::number);
    if (!condition && !times) {
        value.complain("'times' or 'while' must say how often");
    }
    return
        [condition, times, steps = readSteps(*value.find("commands"))](FlowPlayer& player) -> std::optional<Failure> {
            for (int round = 0; round < times.value_or(greatestNumber); ++round) {
                if ((condition && !condition->holds(player)) || !player.playSteps(steps)) {
                    break;
                }
            }
            return std::nullopt;
        };
}

FlowAction makeRunFlow(const FlowValue& value) {
    const auto file = value.itselfOr("file");
    const auto commands = value.find("commands");
    const auto env = value.find("env", &FlowValue::values).value_or(std::vector<std::pair<std::string, std::string>>());
    if (file.has_value() == commands.has_value()) {
        value.complain("either 'file' or 'commands' must say what is played");
        return {};
    }
    FlowReading reading = value.reading();
    for (const auto& [name, text] : env) {
        reading.env[name] = text;
    }
    const auto condition = conditionUnder(value, "when");
    const FlowSteps steps = file ? readStepsOfFlow(*file, env) : readSteps(FlowValue(commands->node(), reading));
    return [condition, steps](FlowPlayer& player) -> std::optional<Failure> {
        if (!condition || condition->holds(player)) {
            static_cast<void>(player.playSteps(steps));
        }
        return std::nullopt;
    };
}

const FlowCommands commands{
    {"extendedWaitUntil",
     {},
     joined(conditionKeys(), {{"timeout", {FlowType::number}, "virtual milliseconds, 7000 when left out"}}),
     "waits until something is on the screen or gone",
     {"extendedWaitUntil: {visible: Slow Burn, timeout: 10000}"},
     makeExtendedWaitUntil},
    {"repeat",
     {},
     {{"times", {FlowType::number}, "at most so often"},
      {"while", {FlowType::condition}, "as long as this holds"},
      {"commands", {FlowType::commands}, "what is repeated", FlowNeed::required}},
     "plays commands several times, until one of them fails",
     {"repeat: {times: 3, commands: [scroll]}", "repeat: {while: {notVisible: Aftercare}, commands: [scroll]}"},
     makeRepeat},
    {"runFlow",
     {{FlowType::name}},
     {{"file", {FlowType::name}, "a flow, beside this one"},
      {"commands", {FlowType::commands}, "what is played in place of a file"},
      {"when", {FlowType::condition}, "plays only when this holds"},
      {"env", {FlowType::values}, "names for that flow, before its own"}},
     "plays the commands of another flow; of its settings only `env` counts",
     {"runFlow: typical-road.yaml", "runFlow: {when: {visible: Slow Burn}, commands: [scroll]}"},
     makeRunFlow},
};

} // namespace

const FlowCommands& controlCommands() {
    return commands;
}
