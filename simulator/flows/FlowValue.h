#pragma once

#include "platform/foundation/Geometry.h"
#include "platform/foundation/NSURL.h"
#include "simulator/conversation/ElementSearch.h"
#include "simulator/flows/FlowDocuments.h"
#include "simulator/flows/FlowTable.h"

#include <map>

/// A place in the extension's window, in points or as a share of its size.
struct FlowPoint {
    double x = 0;
    double y = 0;
    bool relative = false; // x and y are per cent

    [[nodiscard]] CGPoint in(CGSize window) const;
};

/// One flow file while it is read.
struct FlowReading {
    std::string file;
    Findings& findings;
    std::size_t& stepsLeft;                                 // flows that run flows must not grow without end
    std::map<std::string, std::string> env;                 // ${NAME}
    const std::vector<std::string>* participants = nullptr; // null while nobody knows them
    const FlowReading* runBy = nullptr;                     // the flow that runs this one

    /// Files that a flow names stand beside it.
    [[nodiscard]] std::string besideIt(const std::string& other) const;
};

/// A value of a flow file while it is turned into a command. check() tells what does not fit the tables; what fits can
/// be taken as what it is. Refers to a node and a reading that outlive it.
class FlowValue {
public:
    FlowValue(const FlowNode& node, const FlowReading& reading) : m_node(&node), m_reading(&reading) {}

    [[nodiscard]] bool isNothing() const { return m_node->kind == FlowNode::Kind::nothing; }
    [[nodiscard]] bool isText() const { return m_node->kind == FlowNode::Kind::text; }
    [[nodiscard]] bool isList() const { return m_node->kind == FlowNode::Kind::list; }
    [[nodiscard]] bool isMap() const { return m_node->kind == FlowNode::Kind::map; }
    [[nodiscard]] const FlowNode& node() const { return *m_node; }
    [[nodiscard]] const FlowReading& reading() const { return *m_reading; }

    /// Whether it is one of these forms or, if there are any, a map of these keys; adds findings when it is not.
    [[nodiscard]] bool check(const std::vector<FlowForm>& forms, const FlowKeys& keys = {}) const;
    void complain(const std::string& what, Severity severity = Severity::error) const;

    /// With the names of `env` replaced.
    [[nodiscard]] std::string text() const;
    [[nodiscard]] int number() const;
    [[nodiscard]] bool isTrue() const { return text() == "true"; }
    [[nodiscard]] FlowPoint point() const;
    [[nodiscard]] std::vector<FlowPoint> points() const;
    [[nodiscard]] std::vector<std::string> texts() const;
    [[nodiscard]] std::vector<std::pair<std::string, std::string>> values() const;
    [[nodiscard]] NSURL link() const;
    /// Also of a map with selectorKeys() among others.
    [[nodiscard]] Selector selector() const;
    /// The items of a list; of any other value itself.
    [[nodiscard]] std::vector<FlowValue> list() const;

    /// For maps: the value under a key; absent when the key is.
    [[nodiscard]] std::optional<FlowValue> find(std::string_view key) const;
    /// The value under a key as `type`, such as &FlowValue::text, takes it; absent when the key is.
    template <class Value>
    [[nodiscard]] std::optional<Value> find(std::string_view key, Value (FlowValue::*type)() const) const {
        const std::optional<FlowValue> value = find(key);
        return value ? std::optional(((*value).*type)()) : std::nullopt;
    }
    /// The value itself, or in a map what stands under `key`.
    [[nodiscard]] std::optional<FlowValue> itselfOr(std::string_view key) const;

private:
    [[nodiscard]] bool checkKeys(const FlowKeys& keys) const;
    [[nodiscard]] bool checkInside(const FlowForm& form) const;
    [[nodiscard]] bool checkText(const FlowForm& form) const;
    void checkPerson(const std::string& name, const std::vector<std::string>& people) const;

    const FlowNode* m_node;
    const FlowReading* m_reading;
};
