#include "simulator/check/ScreenCheck.h"

#include "game/CategoriesVC.h"
#include "platform/runtime/SourceLocation.h"
#include "platform/uikit/view/ViewSystem.h"
#include "simulator/check/FoldedFindings.h"
#include "simulator/check/Rules.h"
#include "simulator/check/ScreenAudit.h"
#include "simulator/conversation/ElementSearch.h"
#include "simulator/conversation/Finger.h"

#include <boost/json.hpp>

#include <algorithm>
#include <map>
#include <set>
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
        const std::size_t open = text.find(" has no definite");
        finding.what = source != nullptr && open != std::string::npos ? std::string(source->element) + text.substr(open)
                                                                      : text.substr(text.find(": ") + 2);
        finding.device = device;
        findings.push_back(std::move(finding));
    });
}

/// Whether there was a button to tap.
bool tapDropdown(ConversationHost& host) {
    const auto button = ElementSearch(host.window()).find({std::nullopt, "btnDropdown", std::nullopt});
    const std::optional<CGPoint> point = button ? button->pointToTouch() : std::nullopt;
    if (point) {
        Finger(host).tap(*point);
        host.settle();
    }
    return point.has_value();
}

/// From the first row to the last, a screen at a time.
void lookThroughRows(ConversationHost& host, UITableView& table, ScreenAudit& audit) {
    CGFloat offset = 0;
    for (;;) {
        table.setContentOffset({0, offset});
        host.settle();
        audit.lookAtContents();
        const CGFloat page = table.bounds().size.height;
        const CGFloat last = table.contentSize().height - page;
        if (page <= 0 || offset >= last) {
            return;
        }
        offset = std::min(offset + page * 0.75, last);
    }
}

/// The same screen shows the groups' lists and those of the game types.
void lookAtAllLists(ConversationHost& host, ScreenAudit& audit) {
    const auto& children = host.controller()->childViewControllers();
    const auto screen = children.empty() ? nullptr : std::dynamic_pointer_cast<CategoriesVC>(children.front());
    for (const CurrentOption option : contentLoadOrder()) {
        if (screen) {
            screen->showSections(rawValue(option));
            host.settle();
            lookThroughRows(host, *screen->tableView, audit);
        }
    }
}

} // namespace

std::vector<ScreenFinding> checkScreen(const Device& device, ScreenExtent extent) {
    std::vector<ScreenFinding> findings;
    hearLayoutReports(findings, device.name);
    MainRunLoop::shared().useVirtualClock();
    const auto host = std::make_shared<ConversationHost>(device, std::vector<std::string>{"A", "B"});
    host->activate(nullptr);
    host->advance(1s); // its content has come, and it has asked for the expanded presentation
    ScreenAudit audit(*host, findings);
    for (const Style style : {Style::compact, Style::expanded}) {
        host->changeStyle(style);
        host->settle();
        audit.lookInBothAppearances();
        if (tapDropdown(*host)) {
            audit.lookInBothAppearances();
            static_cast<void>(tapDropdown(*host));
        }
    }
    if (extent == ScreenExtent::everything) {
        lookAtAllLists(*host, audit);
        audit.tellUnmeasured();
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
                        {"device", finding.device},
                        {"appearance", finding.appearance}});
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
        findings.push_back(
            {word("rule"), word("path"), line > 0 ? std::optional(TextPlace{line, column}) : std::nullopt, word("what"),
             word("detail"), object.at("amount").to_number<double>(), word("device"), word("appearance")});
    }
    return findings;
}

namespace {

/// What several devices and appearances have in common.
struct Joined {
    const ScreenFinding* worst = nullptr;
    double least = 0;
    std::set<std::string> devices;
    std::set<std::string> appearances;

    void add(const ScreenFinding& finding) {
        least = worst == nullptr ? finding.amount : std::min(least, finding.amount);
        worst = worst == nullptr || finding.amount > worst->amount ? &finding : worst;
        devices.insert(finding.device);
        appearances.insert(finding.appearance);
    }
    [[nodiscard]] Finding finding(std::size_t deviceCount) const {
        const std::size_t others = devices.size() - 1;
        std::string where = devices.size() == deviceCount && others > 0 ? "every device" : worst->device;
        if (devices.size() < deviceCount && others > 0) {
            where += " and " + std::to_string(others) + (others == 1 ? " other" : " others");
        } else if (others > 0 && worst->amount > least + 0.5) {
            where += ", worst on " + worst->device;
        }
        where += appearances == std::set<std::string>{"dark"}    ? ", in the dark"
                 : appearances == std::set<std::string>{"light"} ? ", in the light"
                                                                 : "";
        return findingOf(worst->rule, worst->path, worst->place,
                         worst->what + (worst->detail.empty() ? "" : ": " + worst->detail) + " (on " + where + ")");
    }
};

} // namespace

Findings joinScreenFindings(const std::vector<ScreenFinding>& findings, std::size_t deviceCount) {
    std::map<std::tuple<std::string, std::string, std::optional<TextPlace>, std::string>, Joined> groups;
    for (const ScreenFinding& finding : findings) {
        groups[{finding.rule, finding.path, finding.place, finding.what}].add(finding);
    }
    Findings joined;
    for (const auto& [key, group] : groups) {
        joined.push_back(group.finding(deviceCount));
    }
    return folded(joined);
}
