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
    explicit TreeWriter(const LivePhone& phone) : m_phone(phone), m_origin(phone.host().window().frame().origin) {}

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
    [[nodiscard]] json::array constraintsOf(const UIView& view, const Constraints& around) const {
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

    [[nodiscard]] std::string sourceOf(const NSObject& object) const {
        const SourceLocation* place = sourceLocationOf(object);
        if (place == nullptr) {
            return "";
        }
        const auto& written = m_phone.show().sourceOf;
        return (written ? written(*place->file) : *place->file) + ":" + std::to_string(place->place.line) + ":" +
               std::to_string(place->place.column);
    }

    const LivePhone& m_phone;
    CGPoint m_origin;
};

} // namespace

std::string treeMessage(const LivePhone& phone) {
    return json::serialize(
        json::object{{"type", "tree"}, {"root", TreeWriter(phone).write(phone.host().window(), {})}});
}
