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

/// Walks down the extension's views.
class TreeWriter {
public:
    explicit TreeWriter(CGPoint origin) : m_origin(origin) {}

    /// `around` are the constraints that the views above hold: those that can speak of this view, besides its own.
    [[nodiscard]] json::object write(const UIView& view, Constraints around) const {
        for (const std::shared_ptr<NSLayoutConstraint>& constraint : view.constraints()) {
            around.push_back(constraint.get());
        }
        json::array children;
        for (const std::shared_ptr<UIView>& subview : view.subviews()) {
            children.push_back(write(*subview, around));
        }
        const CGRect frame = view.convertRectToView(view.bounds(), nullptr).offsetBy(m_origin);
        const std::vector<std::string> texts = textsOf(view);
        const bool hasText = !texts.empty() && texts.front() != view.accessibilityLabel();
        return {{"class", classNameOf(view)},
                {"id", view.accessibilityIdentifier()},
                {"label", view.accessibilityLabel()},
                {"text", hasText ? texts.front() : ""},
                {"frame", json::array{frame.minX(), frame.minY(), frame.size.width, frame.size.height}},
                {"hidden", view.isHidden()},
                {"source", sourceOf(view)},
                {"constraints", constraintsOf(view, around)},
                {"children", std::move(children)}};
    }

private:
    [[nodiscard]] static json::array constraintsOf(const UIView& view, const Constraints& around) {
        json::array list;
        for (const NSLayoutConstraint* constraint : around) {
            if (constraint->first().view.lock().get() == &view || constraint->second().view.lock().get() == &view) {
                list.push_back(json::object{{"text", describe(*constraint)},
                                            {"source", sourceOf(*constraint)},
                                            {"state", stateOf(*constraint)}});
            }
        }
        return list;
    }

    [[nodiscard]] static std::string sourceOf(const NSObject& object) {
        const SourceLocation* at = sourceLocationOf(object);
        return at == nullptr
                   ? ""
                   : *at->file + ":" + std::to_string(at->place.line) + ":" + std::to_string(at->place.column);
    }

    CGPoint m_origin; // of the window, on the screen
};

} // namespace

std::string treeMessage(const LivePhone& phone) {
    const UIWindow& window = phone.host().window();
    return json::serialize(
        json::object{{"type", "tree"}, {"root", TreeWriter(window.frame().origin).write(window, {})}});
}
