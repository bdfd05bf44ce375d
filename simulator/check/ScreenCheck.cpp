#include "simulator/check/ScreenCheck.h"

#include "platform/runtime/SourceLocation.h"
#include "platform/uikit/view/ViewSystem.h"
#include "simulator/check/Rules.h"
#include "simulator/check/ScreenAudit.h"
#include "simulator/conversation/ElementSearch.h"
#include "simulator/conversation/Finger.h"

#include <boost/json.hpp>

#include <map>
#include <tuple>

namespace {

namespace json = boost::json;
using namespace std::chrono_literals;
using Style = MSMessagesAppPresentationStyle;

/// Turns what the solver says into findings of the view or constraint that it speaks of.
void hearLayoutReports(std::vector<ScreenFinding>& findings, const std::string& device) {
    setLayoutReportObserver([&findings, device](const std::string& text, const NSObject& about) {
        const bool isConflict = text.starts_with("layout conflict: ");
        const SourceLocation* source = sourceLocationOf(about);
        ScreenFinding finding;
        finding.rule = isConflict ? "layout.conflict" : "layout.ambiguous";
        finding.path = source != nullptr ? *source->file : "";
        finding.place = source != nullptr ? std::optional(source->place) : std::nullopt;
        finding.what = text.substr(text.find(": ") + 2);
        finding.device = device;
        findings.push_back(std::move(finding));
    });
}

void look(ConversationHost& host, std::vector<ScreenFinding>& findings) {
    for (const UIUserInterfaceStyle appearance : {UIUserInterfaceStyle::light, UIUserInterfaceStyle::dark}) {
        host.window().setUserInterfaceStyle(appearance);
        host.settle();
        ScreenAudit(host, findings).run();
    }
    host.window().setUserInterfaceStyle(UIUserInterfaceStyle::light);
}

void lookWithOpenList(ConversationHost& host, std::vector<ScreenFinding>& findings) {
    const auto tapDropdown = [&] {
        const auto button = ElementSearch(host.window()).find({std::nullopt, "btnDropdown", std::nullopt});
        const std::optional<CGPoint> point = button ? button->pointToTouch() : std::nullopt;
        if (point) {
            Finger(host).tap(*point);
            host.settle();
        }
        return point.has_value();
    };
    if (tapDropdown()) {
        look(host, findings);
        static_cast<void>(tapDropdown());
    }
}

} // namespace

std::vector<ScreenFinding> checkScreen(const Device& device) {
    std::vector<ScreenFinding> findings;
    hearLayoutReports(findings, device.name);
    MainRunLoop::shared().useVirtualClock();
    const auto host = std::make_shared<ConversationHost>(device, std::vector<std::string>{"A", "B"});
    host->activate(nullptr);
    host->advance(1s); // its content has come, and it has asked for the expanded presentation
    for (const Style style : {Style::expanded, Style::compact}) {
        host->changeStyle(style);
        host->settle();
        look(*host, findings);
        lookWithOpenList(*host, findings);
    }
    host->close();
    MainRunLoop::shared().reset();
    setLayoutReportObserver({});
    return findings;
}

std::string screenFindingsText(const std::vector<ScreenFinding>& findings) {
    json::array list;
    for (const ScreenFinding& finding : findings) {
        list.push_back({{"rule", finding.rule},
                        {"path", finding.path},
                        {"line", finding.place ? finding.place->line : 0},
                        {"column", finding.place ? finding.place->column : 0},
                        {"what", finding.what},
                        {"detail", finding.detail},
                        {"amount", finding.amount},
                        {"device", finding.device}});
    }
    return json::serialize(list);
}

std::vector<ScreenFinding> readScreenFindings(const std::string& text) {
    std::vector<ScreenFinding> findings;
    json::error_code error;
    const json::value list = json::parse(text, error);
    if (error || !list.is_array()) {
        return findings;
    }
    for (const json::value& each : list.get_array()) {
        const json::object& object = each.as_object();
        const auto word = [&](const char* key) { return std::string(object.at(key).as_string()); };
        const auto line = static_cast<int>(object.at("line").to_number<int>());
        const auto column = static_cast<int>(object.at("column").to_number<int>());
        findings.push_back({word("rule"), word("path"),
                            line > 0 ? std::optional(TextPlace{line, column}) : std::nullopt, word("what"),
                            word("detail"), object.at("amount").to_number<double>(), word("device")});
    }
    return findings;
}

Findings joinScreenFindings(const std::vector<ScreenFinding>& findings, std::size_t deviceCount) {
    struct Joined {
        const ScreenFinding* worst = nullptr;
        std::vector<std::string> devices;
    };
    std::map<std::tuple<std::string, std::string, std::optional<TextPlace>, std::string>, Joined> groups;
    for (const ScreenFinding& finding : findings) {
        Joined& group = groups[{finding.rule, finding.path, finding.place, finding.what}];
        if (group.worst == nullptr || finding.amount > group.worst->amount) {
            group.worst = &finding;
        }
        if (group.devices.empty() || group.devices.back() != finding.device) {
            group.devices.push_back(finding.device);
        }
    }
    Findings joined;
    for (const auto& [key, group] : groups) {
        std::string devices = group.devices.size() == deviceCount ? "every device" : "";
        for (std::size_t i = 0; devices != "every device" && i < group.devices.size(); ++i) {
            devices += (i == 0 ? "" : ", ") + group.devices[i];
        }
        const ScreenFinding& worst = *group.worst;
        joined.push_back(
            findingOf(worst.rule, worst.path, worst.place,
                      worst.what + (worst.detail.empty() ? "" : ": " + worst.detail) + " (on " + devices + ")"));
    }
    return joined;
}
