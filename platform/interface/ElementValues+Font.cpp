#include "platform/interface/ElementValues.h"
#include "platform/interface/WordTable.h"

namespace {

constexpr WordTable<UIFontWeight, 9> weights{{
    {"ultraLight", UIFontWeight::ultraLight},
    {"thin", UIFontWeight::thin},
    {"light", UIFontWeight::light},
    {"regular", UIFontWeight::regular},
    {"medium", UIFontWeight::medium},
    {"semibold", UIFontWeight::semibold},
    {"bold", UIFontWeight::bold},
    {"heavy", UIFontWeight::heavy},
    {"black", UIFontWeight::black},
}};

UIFontWeight weightOf(const InterfaceElement& element, InterfaceReport& report) {
    const std::string* word = element.attribute("weight");
    if (word == nullptr) {
        return UIFontWeight::regular;
    }
    if (const UIFontWeight* weight = meaningOf(*word, weights)) {
        return *weight;
    }
    report.error(element, "weight is \"" + *word + "\", a weight of the system font is expected" +
                              suggestionFrom(*word, weights));
    return UIFontWeight::regular;
}

/// Editors write 0 where they leave the size to the platform.
double pointSizeOf(const InterfaceElement& element, InterfaceReport& report) {
    constexpr double standard = 17;
    if (element.attribute("pointSize") == nullptr) {
        return standard;
    }
    const double size = requiredNumber(element, "pointSize", report).value_or(standard);
    if (size < 0) {
        report.error(element, "pointSize is negative");
    }
    return size > 0 ? size : standard;
}

} // namespace

std::shared_ptr<UIFont> readFont(const InterfaceElement& element, InterfaceReport& report) {
    if (const std::string* style = element.attribute("style")) {
        auto font = UIFont::preferredFontForTextStyle(*style);
        if (!font) {
            report.error(element, "there is no text style \"" + *style + "\"");
        }
        return font;
    }
    const double size = pointSizeOf(element, report);
    if (const std::string* name = element.attribute("name")) {
        report.warning(element, "the font \"" + *name + "\" is not at hand, the system font is shown");
        return UIFont::systemFontOfSize(size);
    }
    const std::string_view type = element.value("type");
    if (type == "boldSystem") {
        return UIFont::boldSystemFontOfSize(size);
    }
    if (type == "italicSystem") {
        return UIFont::italicSystemFontOfSize(size);
    }
    if (type != "system") {
        report.error(element,
                     "type is \"" + std::string(type) + "\", one of system, boldSystem, italicSystem is expected");
        return nullptr;
    }
    return UIFont::systemFontOfSizeWeight(size, weightOf(element, report));
}
