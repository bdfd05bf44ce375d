#include "ui/NamedColors.h"

namespace named_colors {

const std::shared_ptr<UIColor>& appGreen() {
    static const std::shared_ptr<UIColor> color = [] {
        const std::shared_ptr<UIColor> named = UIColor::colorNamed("AppGreen");
        return named ? named : UIColor::blueColor();
    }();
    return color;
}

const std::shared_ptr<UIColor>& textColor() {
    static const std::shared_ptr<UIColor> color = UIColor::colorNamed("TextColor");
    return color;
}

const std::shared_ptr<UIColor>& textGrey() {
    static const std::shared_ptr<UIColor> color = UIColor::colorNamed("TextGrey");
    return color;
}

} // namespace named_colors
