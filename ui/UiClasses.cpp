#include "ui/UiClasses.h"

#include "ui/AppView.h"
#include "ui/DrawingView.h"
#include "ui/GenericButton.h"
#include "ui/GenericLabel.h"
#include "ui/ModeHeaderView.h"
#include "ui/ModeTblCell.h"
#include "ui/UIButton+Handler.h"
#include "ui/UIView+Layer.h"
#include "ui/VibeDropdownTblCell.h"

#include "platform/runtime/ClassBuilder.h"

namespace {

/// A stroke has a colour: a name that the catalogue lacks is refused, and the colour stays.
template <class View>
Acceptance setStrokeColor(View& view, const std::shared_ptr<UIColor>& color) {
    if (!color) {
        return Acceptance::wrongValue;
    }
    view.setStrokeColor(color);
    return Acceptance::accepted;
}

void extendPlatformClasses() {
    ClassBuilder<UIView>("UIView", "UIResponder")
        .property("cornerRadius", &setCornerRadius)
        .property("borderColorApp", &setBorderColorApp)
        .property("borderWidth", &setBorderWidth);
    ClassBuilder<UIButton>("UIButton", "UIControl")
        .action("handleButtonTouchEventWithSender:", &handleButtonTouchEventWithSender);
}

void registerStyledViews() {
    ClassBuilder<AppView>("AppView", "UIView")
        .madeByCoder()
        .property("strokeColor", &setStrokeColor<AppView>)
        .property("strokeWidth", &AppView::setStrokeWidth)
        .property("enableShadow", &AppView::setEnableShadow);
    ClassBuilder<GenericLabel>("GenericLabel", "UILabel").madeByCoder().property("space", &GenericLabel::setSpace);
    ClassBuilder<GenericButton>("GenericButton", "UIButton").madeByCoder();
}

void registerTableParts() {
    ClassBuilder<ModeTblCell>("ModeTblCell", "UITableViewCell")
        .madeByCoder()
        .outlet("iconImageView", &ModeTblCell::iconImageView)
        .outlet("lblTitle", &ModeTblCell::lblTitle)
        .outlet("lblDesc", &ModeTblCell::lblDesc)
        .outlet("imgSelection", &ModeTblCell::imgSelection)
        .outlet("viewBackground", &ModeTblCell::viewBackground)
        .asksFor(AskedResource::Kind::image, {"list_arrow"})
        .asksFor(AskedResource::Kind::textColor, {"TextColor", "TextGrey"});
    ClassBuilder<ModeHeaderView>("ModeHeaderView", "UITableViewHeaderFooterView")
        .madeByCoder()
        .outlet("lblHeaderTitle", &ModeHeaderView::lblHeaderTitle);
    ClassBuilder<VibeDropdownTblCell>("VibeDropdownTblCell", "UITableViewCell")
        .madeByCoder()
        .outlet("lblTitle", &VibeDropdownTblCell::lblTitle)
        .outlet("imgSelected", &VibeDropdownTblCell::imgSelected)
        .outlet("viewMain", &VibeDropdownTblCell::viewMain);
}

void registerCanvas() {
    ClassBuilder<DrawingView>("DrawingView", "UIView")
        .madeByCoder()
        .outlet("delegate", &DrawingView::setDelegate)
        .property("strokeColor", &setStrokeColor<DrawingView>)
        .property("strokeWidth", &DrawingView::setStrokeWidth)
        .property("showPencil", &DrawingView::setShowPencil);
}

} // namespace

void registerUiClasses() {
    extendPlatformClasses();
    registerStyledViews();
    registerTableParts();
    registerCanvas();
}
