#include "platform/runtime/ClassRegistry.h"
#include "platform/runtime/SourceLocation.h"
#include "platform/uikit/view/NSLayoutConstraint.h"
#include "simulator/conversation/ViewTree.h"
#include "simulator/live/PhoneMessages.h"

#include <boost/json.hpp>

#include <array>
#include <cstdio>

namespace json = boost::json;

namespace {

using Constraints = std::vector<const NSLayoutConstraint*>;

const char* nameOf(LayoutAttribute attribute) {
    switch (attribute) {
    case LayoutAttribute::left:
        return "left";
    case LayoutAttribute::right:
        return "right";
    case LayoutAttribute::top:
        return "top";
    case LayoutAttribute::bottom:
        return "bottom";
    case LayoutAttribute::leading:
        return "leading";
    case LayoutAttribute::trailing:
        return "trailing";
    case LayoutAttribute::width:
        return "width";
    case LayoutAttribute::height:
        return "height";
    case LayoutAttribute::centerX:
        return "centerX";
    case LayoutAttribute::centerY:
        return "centerY";
    case LayoutAttribute::firstBaseline:
        return "firstBaseline";
    case LayoutAttribute::lastBaseline:
        return "lastBaseline";
    case LayoutAttribute::notAnAttribute:
        break;
    }
    return "";
}

std::string numberText(double number) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%g", number);
    return text.data();
}

std::string endText(const LayoutEnd& end) {
    const std::shared_ptr<UIView> view = end.view.lock();
    if (!view) {
        return "";
    }
    const std::string& identifier = view->accessibilityIdentifier();
    const char* guide = end.guide == LayoutGuide::view      ? ""
                        : end.guide == LayoutGuide::margins ? ".margins"
                                                            : ".safeArea";
    return (identifier.empty() ? classNameOf(*view) : identifier) + guide + "." + nameOf(end.attribute);
}

std::string termText(const NSLayoutConstraint& constraint) {
    std::string term;
    if (constraint.second().attribute != LayoutAttribute::notAnAttribute) {
        term = (constraint.multiplier() == 1 ? "" : numberText(constraint.multiplier()) + " * ") +
               endText(constraint.second());
    }
    if (term.empty()) {
        return numberText(constraint.constant());
    }
    const double constant = constraint.constant();
    return constant == 0 ? term
                         : term + (constant < 0 ? " - " : " + ") + numberText(constant < 0 ? -constant : constant);
}

std::string constraintText(const NSLayoutConstraint& constraint) {
    const char* relation = constraint.relation() == LayoutRelation::equal             ? " = "
                           : constraint.relation() == LayoutRelation::lessThanOrEqual ? " ≤ "
                                                                                      : " ≥ ";
    const bool required = constraint.priority() >= UILayoutPriorityRequired;
    return endText(constraint.first()) + relation + termText(constraint) +
           (required ? "" : " (priority " + numberText(constraint.priority()) + ")");
}

std::string sourceText(const NSObject& object) {
    const SourceLocation* source = sourceLocationOf(object);
    return source == nullptr
               ? ""
               : *source->file + ":" + std::to_string(source->place.line) + ":" + std::to_string(source->place.column);
}

json::array constraintsOf(const UIView& view, const Constraints& around) {
    json::array list;
    for (const NSLayoutConstraint* constraint : around) {
        if (constraint->first().view.lock().get() == &view || constraint->second().view.lock().get() == &view) {
            list.push_back(json::object{{"text", constraintText(*constraint)}, {"source", sourceText(*constraint)}});
        }
    }
    return list;
}

/// `around` are the constraints that the views above hold: those that can speak of this view, besides its own.
json::object describe(const UIView& view, Constraints around, CGPoint origin) {
    for (const std::shared_ptr<NSLayoutConstraint>& constraint : view.constraints()) {
        around.push_back(constraint.get());
    }
    json::array children;
    for (const std::shared_ptr<UIView>& subview : view.subviews()) {
        children.push_back(describe(*subview, around, origin));
    }
    const CGRect frame = view.convertRectToView(view.bounds(), nullptr).offsetBy(origin);
    const std::vector<std::string> texts = textsOf(view);
    const bool hasText = !texts.empty() && texts.front() != view.accessibilityLabel();
    return {{"class", classNameOf(view)},
            {"id", view.accessibilityIdentifier()},
            {"label", view.accessibilityLabel()},
            {"text", hasText ? texts.front() : ""},
            {"frame", json::array{frame.minX(), frame.minY(), frame.size.width, frame.size.height}},
            {"hidden", view.isHidden()},
            {"source", sourceText(view)},
            {"constraints", constraintsOf(view, around)},
            {"children", std::move(children)}};
}

} // namespace

std::string treeMessage(const ConversationHost& host) {
    const UIWindow& window = host.window();
    return json::serialize(json::object{{"type", "tree"}, {"root", describe(window, {}, window.frame().origin)}});
}
