#include "platform/interface/NibBuilder.h"
#include "platform/uikit/view/UIView.h"

#include <cmath>

namespace {

struct AttributeMeaning {
    LayoutAttribute attribute;
    bool insideMargins = false;
};

constexpr WordTable<AttributeMeaning, 21> attributeNames{{
    {"left", {LayoutAttribute::left}},
    {"right", {LayoutAttribute::right}},
    {"top", {LayoutAttribute::top}},
    {"bottom", {LayoutAttribute::bottom}},
    {"leading", {LayoutAttribute::leading}},
    {"trailing", {LayoutAttribute::trailing}},
    {"width", {LayoutAttribute::width}},
    {"height", {LayoutAttribute::height}},
    {"centerX", {LayoutAttribute::centerX}},
    {"centerY", {LayoutAttribute::centerY}},
    {"firstBaseline", {LayoutAttribute::firstBaseline}},
    {"baseline", {LayoutAttribute::lastBaseline}},
    {"lastBaseline", {LayoutAttribute::lastBaseline}},
    {"leftMargin", {LayoutAttribute::left, true}},
    {"rightMargin", {LayoutAttribute::right, true}},
    {"topMargin", {LayoutAttribute::top, true}},
    {"bottomMargin", {LayoutAttribute::bottom, true}},
    {"leadingMargin", {LayoutAttribute::leading, true}},
    {"trailingMargin", {LayoutAttribute::trailing, true}},
    {"centerXWithinMargins", {LayoutAttribute::centerX, true}},
    {"centerYWithinMargins", {LayoutAttribute::centerY, true}},
}};

constexpr WordTable<LayoutRelation, 3> relations{{
    {"equal", LayoutRelation::equal},
    {"lessThanOrEqual", LayoutRelation::lessThanOrEqual},
    {"greaterThanOrEqual", LayoutRelation::greaterThanOrEqual},
}};

/// "0.75", or a ratio "16:9" or "2/3", the first divided by the second.
std::optional<double> parseMultiplier(std::string_view text) {
    const std::size_t divider = text.find_first_of(":/");
    if (divider == std::string_view::npos) {
        return parseNumber(text);
    }
    const std::optional<double> first = parseNumber(text.substr(0, divider));
    const std::optional<double> second = parseNumber(text.substr(divider + 1));
    if (!first || !second || *second == 0) {
        return std::nullopt;
    }
    const double quotient = *first / *second;
    return std::isfinite(quotient) ? std::optional(quotient) : std::nullopt;
}

double multiplierOf(const InterfaceElement& element, ElementReader& reader) {
    const std::string* text = element.attribute("multiplier");
    const std::optional<double> multiplier = text != nullptr ? parseMultiplier(*text) : 1;
    if (!multiplier) {
        reader.unexpected(element, "multiplier", *text, "a number or a ratio is expected");
    }
    return multiplier.value_or(1);
}

float priorityOf(const InterfaceElement& element, ElementReader& reader) {
    const double priority = reader.numberOr(element, "priority", UILayoutPriorityRequired);
    if (!(priority > 0 && priority <= UILayoutPriorityRequired)) {
        reader.error(element, "priority is " + std::string(element.value("priority")) + ", 1 to 1000 is expected");
        return UILayoutPriorityRequired;
    }
    return static_cast<float>(priority);
}

bool isInside(const LayoutEnd& end, const UIView& owner) {
    const auto view = end.view.lock();
    return !view || view.get() == &owner || view->isDescendantOfView(owner);
}

/// On a phone whose language runs from right to left, one of the two would change its side.
bool mixDirections(const LayoutEnd& one, const LayoutEnd& other) {
    using enum LayoutAttribute;
    return (one.attribute == leading || one.attribute == trailing) &&
           (other.attribute == left || other.attribute == right);
}

/// The identifier, label or id that the file gives, with file and line.
std::string identifierOf(const InterfaceElement& element, const std::string& path) {
    std::string identifier(element.id());
    for (const char* key : {"userLabel", "identifier"}) {
        if (const std::string* given = element.attribute(key)) {
            identifier = *given;
        }
    }
    const std::size_t nameStart = path.rfind('/') + 1; // 0 where there is no folder
    identifier.append(" (").append(path, nameStart).append(":");
    return identifier.append(std::to_string(element.place.line)).append(")");
}

} // namespace

void NibBuilder::makeConstraints(const Made& owner) {
    const auto view = std::dynamic_pointer_cast<UIView>(owner.object);
    if (!view) {
        return;
    }
    for (const InterfaceElement& element : owner.element->inside("constraints")) {
        const bool leftOut = element.value("placeholder") == "YES";
        if (const auto constraint = leftOut ? nullptr : makeConstraint(element, view)) {
            keep(element, constraint);
        } else {
            name(element, {});
        }
    }
}

/// An active constraint; null after an error.
std::shared_ptr<NSLayoutConstraint> NibBuilder::makeConstraint(const InterfaceElement& element,
                                                               const std::shared_ptr<UIView>& owner) {
    const std::optional<LayoutEnd> first = constraintEnd(element, owner, "firstItem", "firstAttribute");
    const bool twoEnded = element.attribute("secondItem") != nullptr || element.attribute("secondAttribute") != nullptr;
    const std::optional<LayoutEnd> second =
        twoEnded ? constraintEnd(element, owner, "secondItem", "secondAttribute") : LayoutEnd{};
    const LayoutRelation* relation =
        m_reader.wordOrFirst(element, "relation", relations, "one of equal, lessThanOrEqual, greaterThanOrEqual");
    const double multiplier = multiplierOf(element, m_reader);
    const double constant = m_reader.numberOr(element, "constant", 0);
    const float priority = priorityOf(element, m_reader);
    if (!first || !second || relation == nullptr) {
        return nullptr;
    }
    if (!isInside(*first, *owner) || !isInside(*second, *owner)) {
        m_reader.error(element, "the constraint reaches outside the view that holds it");
        return nullptr;
    }
    if (mixDirections(*first, *second) || mixDirections(*second, *first)) {
        m_reader.error(element, "an edge that follows the language is tied to left or right, which the phone refuses");
        return nullptr;
    }
    const auto constraint = std::make_shared<NSLayoutConstraint>(*first, *relation, *second, multiplier, constant);
    constraint->setPriority(priority);
    constraint->setIdentifier(identifierOf(element, m_reader.document().path()));
    constraint->setActive(true);
    return constraint;
}

/// None after an error. An item that is not named is the owner.
std::optional<LayoutEnd> NibBuilder::constraintEnd(const InterfaceElement& element,
                                                   const std::shared_ptr<UIView>& owner, std::string_view itemKey,
                                                   std::string_view attributeKey) {
    Named item{owner, LayoutGuide::view};
    if (element.attribute(itemKey) != nullptr) {
        const Named* found = named(element, itemKey);
        item = found != nullptr ? *found : Named{};
    }
    const AttributeMeaning* meaning = m_reader.word(element, attributeKey, attributeNames, "a layout attribute");
    const auto view = std::dynamic_pointer_cast<UIView>(item.object);
    if (item.object && !view) {
        m_reader.error(element, std::string(itemKey) + " is no view");
    }
    if (meaning == nullptr || !view) {
        return std::nullopt;
    }
    return LayoutEnd{view, meaning->insideMargins ? LayoutGuide::margins : item.guide, meaning->attribute};
}
