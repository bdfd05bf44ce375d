#include "simulator/parlor/Report.h"

#include "platform/foundation/NSURL.h"

#include <boost/json.hpp>

namespace {

namespace json = boost::json;

json::object eventJson(const Event& event) {
    return {{"ms", event.time.count()}, {"kind", event.kind}, {"text", event.text}};
}

json::object linkJson(const ConversationHost::OpenedLink& link) {
    json::array items;
    for (const NSURLQueryItem& item : NSURLComponents::componentsWithURL(link.url).queryItems) {
        items.push_back({{"name", item.name}, {"value", item.value ? json::value(*item.value) : json::value()}});
    }
    return {{"ms", link.time.count()}, {"url", link.url.absoluteString()}, {"items", std::move(items)}};
}

json::object styleRequestJson(const ConversationHost::StyleRequest& request) {
    return {{"ms", request.time.count()}, {"style", nameOf(request.style)}, {"changed", request.changed}};
}

json::object failureJson(const Finding& failure) {
    return {{"file", failure.path},
            {"line", failure.place ? failure.place->line : 0},
            {"column", failure.place ? failure.place->column : 0},
            {"message", failure.what}};
}

template <class T>
json::array arrayOf(const std::vector<T>& values, json::object (*convert)(const T&)) {
    json::array array;
    for (const T& value : values) {
        array.push_back(convert(value));
    }
    return array;
}

json::object resultJson(const FlowResult& result) {
    return {{"file", result.file},
            {"name", result.name},
            {"device", result.device},
            {"passed", result.failures.empty()},
            {"events", arrayOf(result.events, eventJson)},
            {"debugLines", json::array(result.debugLines.begin(), result.debugLines.end())},
            {"links", arrayOf(result.links, linkJson)},
            {"styleRequests", arrayOf(result.styleRequests, styleRequestJson)},
            {"failures", arrayOf(result.failures, failureJson)}};
}

} // namespace

std::string reportText(const std::vector<FlowResult>& results) {
    return json::serialize(json::object{{"flows", arrayOf(results, resultJson)}}) + "\n";
}
