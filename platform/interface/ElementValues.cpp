#include "platform/interface/ElementValues.h"

#include "platform/graphics/AssetCatalog.h"
#include "platform/interface/NumberText.h"

#include <array>

std::shared_ptr<UIImage> imageFromCatalog(const std::string& name) {
    AssetCatalog* catalog = AssetCatalog::current();
    return catalog == nullptr ? nullptr : catalog->imageNamed(name);
}

std::optional<double> requiredNumber(const InterfaceElement& element, std::string_view attribute,
                                     InterfaceReport& report) {
    const std::string* text = element.attribute(attribute);
    if (text == nullptr) {
        report.error(element, std::string(attribute) + " is missing");
        return std::nullopt;
    }
    const std::optional<double> number = parseNumber(*text);
    if (!number) {
        report.error(element, std::string(attribute) + " is \"" + *text + "\", a number is expected");
    }
    return number;
}

namespace {

template <std::size_t count>
std::optional<std::array<double, count>>
requiredNumbers(const InterfaceElement& element, const std::array<const char*, count>& names, InterfaceReport& report) {
    std::array<double, count> numbers{};
    bool complete = true;
    for (std::size_t i = 0; i < count; ++i) {
        const std::optional<double> number = requiredNumber(element, names[i], report);
        complete = complete && number.has_value();
        numbers[i] = number.value_or(0);
    }
    return complete ? std::optional(numbers) : std::nullopt;
}

} // namespace

std::optional<CGRect> readRect(const InterfaceElement& element, InterfaceReport& report) {
    const auto numbers = requiredNumbers<4>(element, {"x", "y", "width", "height"}, report);
    return numbers ? std::optional(CGRectMake((*numbers)[0], (*numbers)[1], (*numbers)[2], (*numbers)[3]))
                   : std::nullopt;
}

std::optional<CGSize> readSize(const InterfaceElement& element, InterfaceReport& report) {
    const auto numbers = requiredNumbers<2>(element, {"width", "height"}, report);
    return numbers ? std::optional(CGSize{(*numbers)[0], (*numbers)[1]}) : std::nullopt;
}

std::optional<UIEdgeInsets> readInsets(const InterfaceElement& element, InterfaceReport& report) {
    const auto numbers = element.attribute("minX") != nullptr
                             ? requiredNumbers<4>(element, {"minY", "minX", "maxY", "maxX"}, report)
                             : requiredNumbers<4>(element, {"top", "left", "bottom", "right"}, report);
    return numbers ? std::optional(UIEdgeInsets{(*numbers)[0], (*numbers)[1], (*numbers)[2], (*numbers)[3]})
                   : std::nullopt;
}
