#include "platform/uikit/view/LayoutReports.h"

#include "platform/layout/LayoutSystem.h"

#include <set>

namespace {

struct Reports {
    std::function<void(const std::string&)> observer;
    std::set<std::string> told;
};

Reports& reports() {
    static Reports instance;
    return instance;
}

std::string textOf(const LayoutConflict& conflict) {
    std::string text = "layout conflict: " + conflict.name + " " + conflict.reason;
    const char* separator = ": ";
    for (const std::string& other : conflict.others) {
        text += separator + other;
        separator = ", ";
    }
    return text;
}

std::string textOf(const LayoutAmbiguity& ambiguity) {
    std::string text = "layout ambiguity: " + ambiguity.name + " has no definite";
    const char* separator = " ";
    const auto append = [&](bool open, const char* what) {
        if (open) {
            text += separator + std::string(what);
            separator = ", ";
        }
    };
    append(ambiguity.x, "x");
    append(ambiguity.y, "y");
    append(ambiguity.width, "width");
    append(ambiguity.height, "height");
    return text;
}

void tell(const std::string& text) {
    if (reports().told.insert(text).second) {
        reports().observer(text);
    }
}

} // namespace

void setLayoutReportObserver(std::function<void(const std::string&)> observer) {
    reports() = {std::move(observer), {}};
}

void reportLayout(const LayoutResult& result) {
    if (!reports().observer) {
        return;
    }
    for (const LayoutConflict& conflict : result.conflicts) {
        tell(textOf(conflict));
    }
    for (const LayoutAmbiguity& ambiguity : result.ambiguities) {
        tell(textOf(ambiguity));
    }
}
