#include "simulator/flows/Selector.h"

Selector readSelectorKeys(const FlowValue& map) {
    Selector selector;
    if (const auto text = map.find("text")) {
        selector.text = text->name();
    }
    if (const auto id = map.find("id")) {
        selector.id = id->name();
    }
    if (const auto index = map.find("index")) {
        selector.index = index->count();
    }
    if (!selector.text && !selector.id) {
        map.complain("'text' or 'id' must say which element is meant");
    }
    return selector;
}

Selector readSelector(const FlowValue& value) {
    if (value.isMap()) {
        value.allowOnly({"text", "id", "index"});
        return readSelectorKeys(value);
    }
    Selector selector;
    selector.text = value.name();
    return selector;
}

std::string describe(const Selector& selector) {
    std::string words;
    if (selector.text) {
        words = "'" + *selector.text + "'";
    }
    if (selector.id) {
        words += (words.empty() ? "id '" : " with id '") + *selector.id + "'";
    }
    if (selector.index) {
        words += " number " + std::to_string(*selector.index);
    }
    return words;
}
