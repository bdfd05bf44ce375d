#include "platform/interface/ElementReader.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

std::optional<double> parseNumber(std::string_view text) {
    constexpr double largest = 1e9;
    constexpr std::size_t longest = 64;
    // strtod also reads hexadecimal, "inf", "nan" and leading blanks, which no editor writes.
    if (text.empty() || text.size() > longest || text.find_first_not_of("0123456789+-.eE") != std::string_view::npos) {
        return std::nullopt;
    }
    const std::string terminated(text);
    char* end = nullptr;
    const double number = std::strtod(terminated.c_str(), &end);
    if (end != terminated.c_str() + terminated.size() || !std::isfinite(number) || std::abs(number) > largest) {
        return std::nullopt;
    }
    return number;
}

namespace {

constexpr WordTable<UIFontWeight, 9> weights{{
    {"regular", UIFontWeight::regular},
    {"ultraLight", UIFontWeight::ultraLight},
    {"thin", UIFontWeight::thin},
    {"light", UIFontWeight::light},
    {"medium", UIFontWeight::medium},
    {"semibold", UIFontWeight::semibold},
    {"bold", UIFontWeight::bold},
    {"heavy", UIFontWeight::heavy},
    {"black", UIFontWeight::black},
}};

bool hasComponents(const InterfaceElement& element) {
    return element.attribute("white") != nullptr || element.attribute("red") != nullptr;
}

} // namespace

void ElementReader::error(const InterfaceElement& element, const std::string& what) {
    m_findings.push_back(element.failure(what).in(m_document.path()));
}

void ElementReader::warning(const InterfaceElement& element, const std::string& what) {
    m_findings.push_back(element.failure(what).in(m_document.path(), Severity::warning));
}

const InterfaceElement* ElementReader::markRead(const InterfaceElement* element) {
    if (element != nullptr) {
        m_read.insert(element);
    }
    return element;
}

void ElementReader::unexpected(const InterfaceElement& element, std::string_view key, std::string_view written,
                               std::string_view expected) {
    error(element, std::string(key) + " is \"" + std::string(written) + "\", " + std::string(expected));
}

std::optional<double> ElementReader::number(const InterfaceElement& element, std::string_view key) {
    const std::string* text = element.attribute(key);
    if (text == nullptr) {
        error(element, std::string(key) + " is missing");
        return std::nullopt;
    }
    const std::optional<double> number = parseNumber(*text);
    if (!number) {
        unexpected(element, key, *text, "a number is expected");
    }
    return number;
}

double ElementReader::numberOr(const InterfaceElement& element, std::string_view key, double standard) {
    return element.attribute(key) != nullptr ? number(element, key).value_or(standard) : standard;
}

std::optional<bool> ElementReader::boolean(const InterfaceElement& element, std::string_view key,
                                           std::string_view written) {
    if (written != "YES" && written != "NO") {
        unexpected(element, key, written, "YES or NO is expected");
        return std::nullopt;
    }
    return written == "YES";
}

template <std::size_t count>
std::optional<std::array<double, count>> ElementReader::numbers(const InterfaceElement& element,
                                                                const std::array<const char*, count>& keys) {
    std::array<double, count> numbers{};
    bool complete = true;
    for (std::size_t i = 0; i < count; ++i) {
        const std::optional<double> each = number(element, keys[i]);
        complete = complete && each.has_value();
        numbers[i] = each.value_or(0);
    }
    return complete ? std::optional(numbers) : std::nullopt;
}

std::optional<CGRect> ElementReader::rect(const InterfaceElement& element) {
    const auto read = numbers<4>(element, {"x", "y", "width", "height"});
    return read ? std::optional(CGRectMake((*read)[0], (*read)[1], (*read)[2], (*read)[3])) : std::nullopt;
}

std::optional<CGSize> ElementReader::size(const InterfaceElement& element) {
    const auto read = numbers<2>(element, {"width", "height"});
    return read ? std::optional(CGSize{(*read)[0], (*read)[1]}) : std::nullopt;
}

std::optional<UIEdgeInsets> ElementReader::insets(const InterfaceElement& element) {
    const auto read = element.attribute("minX") != nullptr ? numbers<4>(element, {"minY", "minX", "maxY", "maxX"})
                                                           : numbers<4>(element, {"top", "left", "bottom", "right"});
    return read ? std::optional(UIEdgeInsets{(*read)[0], (*read)[1], (*read)[2], (*read)[3]}) : std::nullopt;
}

std::shared_ptr<UIColor> ElementReader::color(const InterfaceElement& element) {
    for (const char* attribute : {"systemColor", "cocoaTouchSystemColor"}) {
        if (const std::string* name = element.attribute(attribute)) {
            return systemColor(element, *name);
        }
    }
    if (const std::string* name = element.attribute("name")) {
        if (element.value("colorSpace") == "catalog") {
            error(element, "\"" + *name + "\" is a colour of the desktop");
            return nullptr;
        }
        const auto named = UIColor::colorNamed(*name);
        return named ? named : listedColor("namedColor", *name);
    }
    if (!hasComponents(element)) {
        error(element, "a colour needs a name, \"white\", or \"red\", \"green\" and \"blue\"");
        return nullptr;
    }
    return componentColor(element);
}

std::shared_ptr<UIColor> ElementReader::systemColor(const InterfaceElement& element, const std::string& name) {
    if (const auto color = UIColor::systemColorNamed(name)) {
        return color;
    }
    if (hasComponents(element)) {
        return componentColor(element);
    }
    const auto listed = listedColor("systemColor", name);
    if (!listed) {
        error(element, "there is no system colour \"" + name + "\"");
    }
    return listed;
}

/// The colour that the document's resources list under a name, to stand in for the real one.
std::shared_ptr<UIColor> ElementReader::listedColor(const char* kind, std::string_view name) {
    const InterfaceElement* entry = m_document.resource(kind, name);
    const InterfaceElement* listed = entry != nullptr ? entry->child("color") : nullptr;
    // A stand-in that is itself named could name itself.
    return listed != nullptr && hasComponents(*listed) ? componentColor(*listed) : nullptr;
}

std::shared_ptr<UIColor> ElementReader::componentColor(const InterfaceElement& element) {
    const double alpha = element.attribute("alpha") != nullptr ? component(element, "alpha") : 1;
    if (element.attribute("white") != nullptr) {
        const double white = component(element, "white");
        return std::make_shared<UIColor>(white, white, white, alpha);
    }
    return std::make_shared<UIColor>(component(element, "red"), component(element, "green"), component(element, "blue"),
                                     alpha);
}

/// From 0 to 1; what lies outside (wide colours) is clipped.
double ElementReader::component(const InterfaceElement& element, std::string_view key) {
    return std::clamp(number(element, key).value_or(0), 0.0, 1.0);
}

std::shared_ptr<UIFont> ElementReader::font(const InterfaceElement& element) {
    if (const std::string* style = element.attribute("style")) {
        auto font = UIFont::preferredFontForTextStyle(*style);
        if (!font) {
            error(element, "there is no text style \"" + *style + "\"");
        }
        return font;
    }
    const double points = pointSize(element);
    if (const std::string* name = element.attribute("name")) {
        warning(element, "the font \"" + *name + "\" is not at hand, the system font is shown");
        return UIFont::systemFontOfSize(points);
    }
    const std::string_view type = element.value("type");
    if (type == "boldSystem") {
        return UIFont::boldSystemFontOfSize(points);
    }
    if (type == "italicSystem") {
        return UIFont::italicSystemFontOfSize(points);
    }
    if (type != "system") {
        unexpected(element, "type", type, "one of system, boldSystem, italicSystem is expected");
        return nullptr;
    }
    const UIFontWeight* weight = wordOrFirst(element, "weight", weights, "a weight of the system font");
    return UIFont::systemFontOfSizeWeight(points, weight != nullptr ? *weight : UIFontWeight::regular);
}

/// Editors write 0 where they leave the size to the platform.
double ElementReader::pointSize(const InterfaceElement& element) {
    constexpr double standard = 17;
    const double size = numberOr(element, "pointSize", standard);
    if (size < 0) {
        error(element, "pointSize is negative");
    }
    return size > 0 ? size : standard;
}
