#include "simulator/live/PhoneMessages.h"

#include "content/DropdownRows.h"
#include "game/CategoriesVC.h"
#include "platform/uikit/controls/UITextField.h"
#include "simulator/conversation/ScreenNarrator.h"

#include <boost/json.hpp>

#include <algorithm>

namespace json = boost::json;

namespace {

json::array listOf(const std::vector<std::string>& texts) {
    return json::array(texts.begin(), texts.end());
}

json::array frameOf(const CGRect& frame) {
    return {frame.minX(), frame.minY(), frame.size.width, frame.size.height};
}

const char* presentationOf(const ConversationHost& host) {
    return host.isOpen() ? nameOf(host.style()) : "closed";
}

/// Those that are offered and the one that was asked for.
std::vector<std::string> devicesFor(const Device& device) {
    std::vector<std::string> names = offeredDevices();
    if (std::find(names.begin(), names.end(), device.name) == names.end()) {
        names.push_back(device.name);
    }
    return names;
}

} // namespace

const std::vector<std::string>& offeredDevices() {
    static const std::vector<std::string> names{"se", "8plus", "15", "15max"};
    return names;
}

std::string stateMessage(const LivePhone& phone) {
    const ConversationHost& host = phone.host();
    const Device& device = host.device();
    const CategoriesVC* screen = shownCategoryScreen(host);
    const bool hasGroups = screen != nullptr && screen->selectedMoreGameType() == MoreGameTypes::None;
    const bool isDark = host.window().userInterfaceStyle() == UIUserInterfaceStyle::dark;
    return json::serialize(json::object{
        {"type", "state"},
        {"device", device.name},
        {"devices", listOf(devicesFor(device))},
        {"size", json::array{device.size.width, device.size.height}},
        {"scale", device.scale},
        {"appearance", isDark ? "dark" : "light"},
        {"presentation", presentationOf(host)},
        {"group", hasGroups ? rawValue(screen->currentOption()) : ""},
        {"groups", listOf(hasGroups ? playerGroupTitles() : std::vector<std::string>())},
        {"participants", listOf(phone.show().participants)},
        {"loadingTakes", phone.loadingTakes()},
        {"scene", phone.show().scene.empty() ? "extension" : phone.show().scene},
        {"source", phone.show().title},
        {"typing", std::dynamic_pointer_cast<UITextField>(UIResponder::firstResponder()) != nullptr},
        {"extension", frameOf(host.isOpen() ? host.window().frame() : CGRect{})},
    });
}

std::string elementsMessage(const std::vector<TouchablePart>& parts) {
    json::array list;
    for (const TouchablePart& part : parts) {
        list.push_back(json::object{
            {"role", part.role}, {"label", part.label}, {"id", part.identifier}, {"frame", frameOf(part.frame)}});
    }
    return json::serialize(json::object{{"type", "elements"}, {"list", std::move(list)}});
}

std::string debugMessage(std::int64_t milliseconds, const std::string& line) {
    return json::serialize(json::object{{"type", "debug"}, {"ms", milliseconds}, {"line", line}});
}

std::string linkMessage(std::int64_t milliseconds, const NSURL& url) {
    json::array items;
    for (const NSURLQueryItem& item : NSURLComponents::componentsWithURL(url).queryItems) {
        json::value value = item.value ? json::value(*item.value) : json::value(nullptr);
        items.push_back(json::object{{"name", item.name}, {"value", std::move(value)}});
    }
    return json::serialize(json::object{
        {"type", "link"}, {"ms", milliseconds}, {"url", url.absoluteString()}, {"items", std::move(items)}});
}

std::string styleRequestMessage(std::int64_t milliseconds, const ConversationHost::StyleRequest& request) {
    return json::serialize(json::object{{"type", "styleRequest"},
                                        {"ms", milliseconds},
                                        {"style", nameOf(request.style)},
                                        {"changed", request.changed}});
}

std::string flowMessage(const std::string& text) {
    return json::serialize(json::object{{"type", "flow"}, {"text", text}});
}

std::string settledMessage(std::uint32_t heard) {
    return json::serialize(json::object{{"type", "settled"}, {"heard", heard}});
}

std::string findingsMessage(const Findings& findings) {
    json::array list;
    for (const Finding& finding : findings) {
        list.push_back(json::object{{"severity", finding.severity == Severity::error ? "error" : "warning"},
                                    {"path", finding.path},
                                    {"line", finding.place ? finding.place->line : 0},
                                    {"column", finding.place ? finding.place->column : 0},
                                    {"what", finding.what}});
    }
    return json::serialize(json::object{{"type", "findings"}, {"list", std::move(list)}});
}
