#include "platform/uikit/UIKitClasses.h"

#include "platform/runtime/ClassBuilder.h"
#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/controls/UIButton.h"
#include "platform/uikit/controls/UIImageView.h"
#include "platform/uikit/controls/UILabel.h"
#include "platform/uikit/controls/UITextField.h"
#include "platform/uikit/table/UITableView.h"
#include "platform/uikit/table/UITableViewCell.h"
#include "platform/uikit/table/UITableViewHeaderFooterView.h"
#include "platform/uikit/window/UIWindow.h"

namespace {

/// Shadows have a hard edge.
Acceptance setShadowRadius(CALayer& layer, CGFloat radius) {
    if (radius != 0) {
        return Acceptance::wrongValue;
    }
    layer.setShadowRadius(radius);
    return Acceptance::accepted;
}

/// Other people's files set it; nothing is drawn in a tint here.
void ignoreTintColor(UIView& /*view*/, const std::shared_ptr<UIColor>& /*color*/) {}

void registerViews() {
    ClassBuilder<CALayer>("CALayer", "NSObject")
        .property("cornerRadius", &CALayer::setCornerRadius)
        .property("borderWidth", &CALayer::setBorderWidth)
        .property("borderColor", &CALayer::setBorderColor)
        .property("masksToBounds", &CALayer::setMasksToBounds)
        .property("shadowColor", &CALayer::setShadowColor)
        .property("shadowOpacity", &CALayer::setShadowOpacity)
        .property("shadowOffset", &CALayer::setShadowOffset)
        .property("shadowRadius", &setShadowRadius);
    ClassBuilder<UIView>("UIView", "UIResponder")
        .madeByCoder()
        .object("layer", &UIView::layer)
        .property("alpha", &UIView::setAlpha)
        .property("hidden", &UIView::setHidden)
        .property("tag", &UIView::setTag)
        .property("clipsToBounds", &UIView::setClipsToBounds)
        .property("backgroundColor", &UIView::setBackgroundColor)
        .property("tintColor", &ignoreTintColor)
        .property("accessibilityIdentifier", &UIView::setAccessibilityIdentifier)
        .property("accessibilityLabel", &UIView::setAccessibilityLabel);
    ClassBuilder<UIWindow>("UIWindow", "UIView"); // made by the host only
    ClassBuilder<UIImageView>("UIImageView", "UIView").madeByCoder().property("image", &UIImageView::setImage);
    ClassBuilder<UILabel>("UILabel", "UIView")
        .madeByCoder()
        .property("text", &UILabel::setText)
        .property("textColor", &UILabel::setTextColor)
        .property("numberOfLines", &UILabel::setNumberOfLines);
}

void registerControls() {
    ClassBuilder<UIControl>("UIControl", "UIView").madeByCoder().property("enabled", &UIControl::setEnabled);
    ClassBuilder<UIButton>("UIButton", "UIControl").madeByCoder();
    ClassBuilder<UITextField>("UITextField", "UIControl")
        .madeByCoder()
        .outlet("delegate", &UITextField::setDelegate)
        .property("text", &UITextField::setText)
        .property("placeholder", &UITextField::setPlaceholder);
}

void registerTables() {
    ClassBuilder<UIScrollView>("UIScrollView", "UIView")
        .madeByCoder()
        .property("showsVerticalScrollIndicator", &UIScrollView::setShowsVerticalScrollIndicator);
    ClassBuilder<UITableView>("UITableView", "UIScrollView")
        .madeByCoder()
        .outlet("dataSource", &UITableView::setDataSource)
        .outlet("delegate", &UITableView::setDelegate);
    ClassBuilder<UITableViewCell>("UITableViewCell", "UIView").madeByCoder();
    ClassBuilder<UITableViewHeaderFooterView>("UITableViewHeaderFooterView", "UIView").madeByCoder();
}

} // namespace

void registerUIKitClasses() {
    ClassBuilder<UIResponder>("UIResponder", "NSObject");
    ClassBuilder<NSLayoutConstraint>("NSLayoutConstraint", "NSObject");
    registerViews();
    registerControls();
    registerTables();
    ClassBuilder<UIViewController>("UIViewController", "UIResponder")
        .madeByCoder()
        .outlet("view", &UIViewController::setView);
    ClassBuilder<UINavigationController>("UINavigationController", "UIViewController").madeByCoder();
}
