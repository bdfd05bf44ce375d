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
        .property("strokeColor", &AppView::setStrokeColor)
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
        .outlet("viewBackground", &ModeTblCell::viewBackground);
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
        .property("strokeColor", &DrawingView::setStrokeColor)
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
