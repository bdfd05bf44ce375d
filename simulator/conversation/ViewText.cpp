#include "simulator/conversation/ViewText.h"

#include "platform/uikit/controls/UILabel.h"
#include "platform/uikit/controls/UITextField.h"

namespace {

std::string ownText(const UIView& view) {
    if (const auto* label = dynamic_cast<const UILabel*>(&view)) {
        return label->text().value_or("");
    }
    if (const auto* field = dynamic_cast<const UITextField*>(&view)) {
        return field->text().value_or("").empty() ? field->placeholder() : *field->text();
    }
    return "";
}

} // namespace

std::vector<std::string> textsOf(const UIView& view) {
    std::vector<std::string> texts;
    for (std::string text : {ownText(view), view.accessibilityLabel()}) {
        if (!text.empty()) {
            texts.push_back(std::move(text));
        }
    }
    return texts;
}
