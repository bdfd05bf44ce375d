#include "platform/interface/ElementValues.h"

#include <algorithm>

namespace {

/// A component from 0 to 1; what lies outside (wide colours) is clipped.
double component(const InterfaceElement& element, std::string_view attribute, InterfaceReport& report) {
    return std::clamp(requiredNumber(element, attribute, report).value_or(0), 0.0, 1.0);
}

double alphaOf(const InterfaceElement& element, InterfaceReport& report) {
    return element.attribute("alpha") != nullptr ? component(element, "alpha", report) : 1;
}

/// The colour that the document's resources list under a name, to stand in for the real one.
std::shared_ptr<UIColor> listedColor(const char* kind, std::string_view name, const InterfaceDocument& document,
                                     InterfaceReport& report) {
    const InterfaceElement* entry = document.resource(kind, name);
    const InterfaceElement* color = entry != nullptr ? entry->child("color") : nullptr;
    // A stand-in that is itself named could name itself.
    const bool plain =
        color != nullptr && color->attribute("name") == nullptr && color->attribute("systemColor") == nullptr;
    return plain ? readColor(*color, document, report) : nullptr;
}

std::shared_ptr<UIColor> componentColor(const InterfaceElement& element, InterfaceReport& report) {
    const double alpha = alphaOf(element, report);
    if (element.attribute("white") != nullptr) {
        const double white = component(element, "white", report);
        return std::make_shared<UIColor>(white, white, white, alpha);
    }
    return std::make_shared<UIColor>(component(element, "red", report), component(element, "green", report),
                                     component(element, "blue", report), alpha);
}

bool hasComponents(const InterfaceElement& element) {
    return element.attribute("white") != nullptr || element.attribute("red") != nullptr;
}

std::shared_ptr<UIColor> systemColor(const InterfaceElement& element, const std::string& name,
                                     const InterfaceDocument& document, InterfaceReport& report) {
    if (const auto color = UIColor::systemColorNamed(name)) {
        return color;
    }
    if (hasComponents(element)) {
        return componentColor(element, report);
    }
    const auto listed = listedColor("systemColor", name, document, report);
    if (!listed) {
        report.error(element, "there is no system colour \"" + name + "\"");
    }
    return listed;
}

} // namespace

std::shared_ptr<UIColor> readColor(const InterfaceElement& element, const InterfaceDocument& document,
                                   InterfaceReport& report) {
    for (const char* attribute : {"systemColor", "cocoaTouchSystemColor"}) {
        if (const std::string* name = element.attribute(attribute)) {
            return systemColor(element, *name, document, report);
        }
    }
    if (const std::string* name = element.attribute("name")) {
        if (element.value("colorSpace") == "catalog") {
            report.error(element, "\"" + *name + "\" is a colour of the desktop");
            return nullptr;
        }
        const auto named = UIColor::colorNamed(*name);
        return named ? named : listedColor("namedColor", *name, document, report);
    }
    if (!hasComponents(element)) {
        report.error(element, "a colour needs a name, \"white\", or \"red\", \"green\" and \"blue\"");
        return nullptr;
    }
    return componentColor(element, report);
}
