#include "tests/interface/StandIns.h"

#include "platform/runtime/ClassBuilder.h"
#include "platform/uikit/UIKitClasses.h"

namespace {

void setRadius(UIView& view, CGFloat radius) {
    view.layer()->setCornerRadius(radius);
}

void setBorderColor(UIView& view, const std::shared_ptr<UIColor>& color) {
    view.layer()->setBorderColor(color);
}

void setBorderWidth(UIView& view, CGFloat width) {
    view.layer()->setBorderWidth(width);
}

} // namespace

void StandInModeCell::awakeFromNib() {
    ++awakenings;
    connectedWhenAwoken = lblTitle.get() && viewBackground.get() && viewBackground->layer()->cornerRadius() > 0;
}

void registerStandIns() {
    registerUIKitClasses();
    ClassBuilder<UIView>("UIView", "UIResponder")
        .property("cornerRadius", &setRadius)
        .property("borderColorApp", &setBorderColor)
        .property("borderWidth", &setBorderWidth);
    ClassBuilder<StandInView>("AppView", "UIView").madeByCoder();
    ClassBuilder<StandInButton>("GenericButton", "UIButton").madeByCoder();
    ClassBuilder<StandInModeCell>("ModeTblCell", "UITableViewCell")
        .madeByCoder()
        .outlet("iconImageView", &StandInModeCell::iconImageView)
        .outlet("lblTitle", &StandInModeCell::lblTitle)
        .outlet("lblDesc", &StandInModeCell::lblDesc)
        .outlet("imgSelection", &StandInModeCell::imgSelection)
        .outlet("viewBackground", &StandInModeCell::viewBackground);
    ClassBuilder<StandInVibeCell>("VibeDropdownTblCell", "UITableViewCell")
        .madeByCoder()
        .outlet("lblTitle", &StandInVibeCell::lblTitle)
        .outlet("imgSelected", &StandInVibeCell::imgSelected)
        .outlet("viewMain", &StandInVibeCell::viewMain);
    ClassBuilder<StandInHeader>("ModeHeaderView", "UITableViewHeaderFooterView")
        .madeByCoder()
        .outlet("lblHeaderTitle", &StandInHeader::lblHeaderTitle);
    ClassBuilder<StandInMessages>("MessagesViewController", "UIViewController").madeByCoder();
    ClassBuilder<StandInScreen>("CategoriesVC", "UIViewController")
        .madeByCoder()
        .outlet("tableView", &StandInScreen::tableView)
        .outlet("tblDropDown", &StandInScreen::tblDropDown)
        .outlet("viewDropDown", &StandInScreen::viewDropDown)
        .outlet("viewDropDownButton", &StandInScreen::viewDropDownButton)
        .outlet("lblDropDown", &StandInScreen::lblDropDown)
        .outlet("imgDropDown", &StandInScreen::imgDropDown)
        .outlet("cnBottomOfLetsPlay", &StandInScreen::cnBottomOfLetsPlay)
        .outlet("heightOfTblView", &StandInScreen::heightOfTblView)
        .action("btnDropdownWithSender:", &StandInScreen::btnDropdown)
        .action("btnBackWithSender:", &StandInScreen::btnBack)
        .action("btnLetsPlayWithSender:", &StandInScreen::btnLetsPlay);
}
