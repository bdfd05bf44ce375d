#include "simulator/conversation/ViewTree.h"

#include "platform/runtime/ClassRegistry.h"
#include "platform/runtime/SourceLocation.h"
#include "platform/uikit/controls/UIImageView.h"
#include "platform/uikit/controls/UILabel.h"
#include "platform/uikit/controls/UIScrollView.h"
#include "platform/uikit/controls/UITextField.h"

#include <array>
#include <cstdio>

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

std::string numberText(CGFloat number) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.2f", number == 0 ? 0 : number); // never "-0"
    std::string result = text.data();
    result.erase(result.find_last_not_of('0') + 1);
    if (result.back() == '.') {
        result.pop_back();
    }
    return result;
}

std::string frameText(const CGRect& frame) {
    return "(" + numberText(frame.minX()) + " " + numberText(frame.minY()) + "; " + numberText(frame.size.width) +
           " x " + numberText(frame.size.height) + ")";
}

std::string quoted(const std::string& text) {
    std::string result = "\"";
    for (const char letter : text) {
        result += letter == '\n' ? "\\n" : std::string(1, letter);
    }
    return result + "\"";
}

std::string lineOf(const UIView& view) {
    std::string line = classNameOf(view);
    if (!view.accessibilityIdentifier().empty()) {
        line += " #" + view.accessibilityIdentifier();
    }
    line += " " + frameText(view.frame());
    for (const std::string& text : textsOf(view)) {
        line += " " + quoted(text);
    }
    if (const auto* image = dynamic_cast<const UIImageView*>(&view)) {
        line += image->image() ? " image " + quoted(image->image()->name()) : " no image";
    }
    if (const auto* scrolls = dynamic_cast<const UIScrollView*>(&view)) {
        const CGPoint offset = scrolls->contentOffset();
        line += " scrolled to (" + numberText(offset.x) + " " + numberText(offset.y) + ")";
    }
    if (view.isHidden()) {
        line += " hidden";
    }
    return line;
}

void append(std::string& tree, const UIView& view, TreeDetail detail, std::size_t depth) {
    tree += std::string(depth * 2, ' ') + lineOf(view);
    const SourceLocation* source = sourceLocationOf(view);
    if (source != nullptr && detail == TreeDetail::withSources) {
        tree += "  <- " + *source->file + ":" + std::to_string(source->place.line);
    }
    tree += '\n';
    for (const std::shared_ptr<UIView>& subview : view.subviews()) {
        append(tree, *subview, detail, depth + 1);
    }
}

} // namespace

std::string describeTree(const UIView& view, TreeDetail detail) {
    std::string tree;
    append(tree, view, detail, 0);
    return tree;
}

std::vector<std::string> textsOf(const UIView& view) {
    std::vector<std::string> texts;
    for (std::string text : {ownText(view), view.accessibilityLabel()}) {
        if (!text.empty()) {
            texts.push_back(std::move(text));
        }
    }
    return texts;
}
