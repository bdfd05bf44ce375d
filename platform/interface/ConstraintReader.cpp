#include "platform/interface/ConstraintReader.h"

#include "platform/interface/ElementValues.h"
#include "platform/interface/NumberText.h"
#include "platform/interface/WordTable.h"
#include "platform/uikit/view/UIView.h"

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

const AttributeMeaning* attributeNamed(const InterfaceElement& element, std::string_view key, InterfaceReport& report) {
    const std::string_view word = element.value(key);
    const AttributeMeaning* meaning = meaningOf(word, attributeNames);
    if (meaning == nullptr) {
        report.error(element, std::string(key) + " is \"" + std::string(word) + "\", a layout attribute is expected" +
                                  suggestionFrom(word, attributeNames));
    }
    return meaning;
}

std::optional<LayoutRelation> relationOf(const InterfaceElement& element, InterfaceReport& report) {
    const std::string_view word = element.value("relation");
    if (word.empty() || word == "equal") {
        return LayoutRelation::equal;
    }
    if (word == "lessThanOrEqual") {
        return LayoutRelation::lessThanOrEqual;
    }
    if (word == "greaterThanOrEqual") {
        return LayoutRelation::greaterThanOrEqual;
    }
    report.error(element, "relation is \"" + std::string(word) +
                              "\", one of equal, lessThanOrEqual, greaterThanOrEqual is expected");
    return std::nullopt;
}

double numberOr(const InterfaceElement& element, std::string_view key, double standard, InterfaceReport& report) {
    return element.attribute(key) != nullptr ? requiredNumber(element, key, report).value_or(standard) : standard;
}

double multiplierOf(const InterfaceElement& element, InterfaceReport& report) {
    const std::string* text = element.attribute("multiplier");
    if (text == nullptr) {
        return 1;
    }
    const std::optional<double> multiplier = parseMultiplier(*text);
    if (!multiplier) {
        report.error(element, "multiplier is \"" + *text + "\", a number or a ratio is expected");
    }
    return multiplier.value_or(1);
}

float priorityOf(const InterfaceElement& element, InterfaceReport& report) {
    const double priority = numberOr(element, "priority", UILayoutPriorityRequired, report);
    if (!(priority > 0 && priority <= UILayoutPriorityRequired)) {
        report.error(element, "priority is " + std::string(element.value("priority")) + ", 1 to 1000 is expected");
        return UILayoutPriorityRequired;
    }
    return static_cast<float>(priority);
}

/// Reads both ends of one constraint.
class EndReader {
public:
    EndReader(const InterfaceElement& element, const std::shared_ptr<UIView>& owner, const InterfaceObjects& objects,
              InterfaceReport& report)
        : m_element(element), m_owner(owner), m_objects(objects), m_report(report) {}

    /// None after an error. An item that is not named is the owner.
    [[nodiscard]] std::optional<LayoutEnd> read(std::string_view itemKey, std::string_view attributeKey) const {
        InterfaceObjects::Entry entry{m_owner, LayoutGuide::view};
        bool resolved = true;
        if (m_element.attribute(itemKey) != nullptr) {
            const InterfaceObjects::Entry* named = m_objects.require(m_element, itemKey, m_report);
            resolved = named != nullptr && named->object;
            entry = resolved ? *named : entry;
        }
        const AttributeMeaning* meaning = attributeNamed(m_element, attributeKey, m_report);
        const auto view = std::dynamic_pointer_cast<UIView>(entry.object);
        if (!view) {
            m_report.error(m_element, std::string(itemKey) + " is no view");
        }
        if (!resolved || meaning == nullptr || !view) {
            return std::nullopt;
        }
        return LayoutEnd{view, meaning->insideMargins ? LayoutGuide::margins : entry.guide, meaning->attribute};
    }

private:
    const InterfaceElement& m_element;
    const std::shared_ptr<UIView>& m_owner;
    const InterfaceObjects& m_objects;
    InterfaceReport& m_report;
};

bool isInside(const LayoutEnd& end, const UIView& owner) {
    const auto view = end.view.lock();
    return !view || view.get() == &owner || view->isDescendantOfView(owner);
}

std::string identifierOf(const InterfaceElement& element, const InterfaceDocument& document) {
    std::string identifier(element.id());
    for (const char* key : {"userLabel", "identifier"}) {
        if (const std::string* given = element.attribute(key)) {
            identifier = *given;
        }
    }
    return identifier.append(" (").append(document.fileName()).append(":") + std::to_string(element.place.line) + ")";
}

} // namespace

std::shared_ptr<NSLayoutConstraint> readConstraint(const InterfaceElement& element,
                                                   const std::shared_ptr<UIView>& owner,
                                                   const InterfaceObjects& objects, const InterfaceDocument& document,
                                                   InterfaceReport& report) {
    const EndReader ends(element, owner, objects, report);
    const std::optional<LayoutEnd> first = ends.read("firstItem", "firstAttribute");
    const bool twoEnded = element.attribute("secondItem") != nullptr || element.attribute("secondAttribute") != nullptr;
    const std::optional<LayoutEnd> second = twoEnded ? ends.read("secondItem", "secondAttribute") : LayoutEnd{};
    const std::optional<LayoutRelation> relation = relationOf(element, report);
    const double multiplier = multiplierOf(element, report);
    const double constant = numberOr(element, "constant", 0, report);
    const float priority = priorityOf(element, report);
    if (!first || !second || !relation) {
        return nullptr;
    }
    if (!isInside(*first, *owner) || !isInside(*second, *owner)) {
        report.error(element, "the constraint reaches outside the view that holds it");
        return nullptr;
    }
    const auto constraint = std::make_shared<NSLayoutConstraint>(*first, *relation, *second, multiplier, constant);
    constraint->setPriority(priority);
    constraint->setIdentifier(identifierOf(element, document));
    constraint->setActive(true);
    return constraint;
}
