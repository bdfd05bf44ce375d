#pragma once

#include "platform/foundation/Geometry.h"
#include "simulator/conversation/ElementSearch.h"
#include "simulator/flows/FlowDocuments.h"

#include <initializer_list>
#include <string_view>

/// A place in the extension's window, in points or as a share of its size.
struct FlowPoint {
    double x = 0;
    double y = 0;
    bool relative = false; // x and y are per cent

    [[nodiscard]] CGPoint in(CGSize window) const;
};

/// A value of a flow file while it is turned into a command: typed access that reports what does not fit and then
/// answers with an empty value, so that one reading finds every problem. Refers to a node and problems that outlive it.
class FlowValue {
public:
    FlowValue(const FlowNode& node, std::vector<Failure>& problems) : m_node(&node), m_problems(&problems) {}

    [[nodiscard]] bool isNothing() const { return m_node->kind == FlowNode::Kind::nothing; }
    [[nodiscard]] bool isText() const { return m_node->kind == FlowNode::Kind::text; }
    [[nodiscard]] bool isList() const { return m_node->kind == FlowNode::Kind::list; }
    [[nodiscard]] bool isMap() const { return m_node->kind == FlowNode::Kind::map; }
    [[nodiscard]] const FlowNode& node() const { return *m_node; }

    [[nodiscard]] std::string text() const;
    /// Not empty.
    [[nodiscard]] std::string name() const;
    /// One of these words.
    [[nodiscard]] std::string word(const std::vector<std::string>& words) const;
    /// A whole number, 0 or above.
    [[nodiscard]] int count() const;
    [[nodiscard]] std::vector<FlowValue> list() const;
    /// The texts of a list, or one text standing for a list of one.
    [[nodiscard]] std::vector<std::string> texts() const;

    /// An element of the screen: `"Friends"` or `{text: …, id: …, index: …}`.
    [[nodiscard]] Selector selector() const;
    /// The same within a map that has other keys, too, and whose keys were checked.
    [[nodiscard]] Selector selectorAmongKeys() const;
    /// "120,40" or "50%,80%".
    [[nodiscard]] FlowPoint point() const;

    /// For maps: the value under a key; absent when the key is.
    [[nodiscard]] std::optional<FlowValue> find(std::string_view key) const;
    /// The value under a key as `type`, such as &FlowValue::name, reads it; absent when the key is.
    template <class Value>
    [[nodiscard]] std::optional<Value> find(std::string_view key, Value (FlowValue::*type)() const) const {
        const std::optional<FlowValue> value = find(key);
        return value ? std::optional((*value.*type)()) : std::nullopt;
    }
    [[nodiscard]] std::string requiredText(std::string_view key) const;
    /// Reports keys other than these, and a value that is no map.
    void allowOnly(std::initializer_list<const char*> keys) const;
    /// For commands that take nothing, or nothing but settings that may all be left out.
    void expectNothing() const;
    void expectNothingBut(const char* key) const;

    void complain(const std::string& message) const { m_problems->push_back({message, m_node->place}); }

private:
    const FlowNode* m_node;
    std::vector<Failure>* m_problems;
};
