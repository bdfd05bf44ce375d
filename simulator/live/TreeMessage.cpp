#include "platform/runtime/ClassRegistry.h"
#include "platform/runtime/SourceLocation.h"
#include "platform/uikit/view/NSLayoutConstraint.h"
#include "simulator/conversation/ViewTree.h"
#include "simulator/live/ConstraintState.h"
#include "simulator/live/PhoneMessages.h"

#include <boost/json.hpp>

namespace json = boost::json;

namespace {

using Constraints = std::vector<const NSLayoutConstraint*>;

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
            list.push_back(json::object{
                {"text", describe(*constraint)}, {"source", sourceText(*constraint)}, {"state", stateOf(*constraint)}});
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
