#include "tests/interface/StandIns.h"

#include "platform/runtime/ClassBuilder.h"
#include "platform/uikit/UIKitClasses.h"

namespace {

void setRadius(UIView& view, CGFloat radius) {
    view.layer()->setCornerRadius(radius);
}

} // namespace

void StandInModeCell::awakeFromNib() {
    ++awakenings;
    connectedWhenAwoken = lblTitle.get() && viewBackground.get() && viewBackground->layer()->cornerRadius() > 0;
}

void registerStandIns() {
    registerUIKitClasses();
    ClassBuilder<UIView>("UIView", "UIResponder").property("cornerRadius", &setRadius);
    ClassBuilder<StandInView>("AppView", "UIView").madeByCoder();
    ClassBuilder<StandInButton>("GenericButton", "UIButton").madeByCoder();
    ClassBuilder<StandInModeCell>("ModeTblCell", "UITableViewCell")
        .madeByCoder()
        .outlet("lblTitle", &StandInModeCell::lblTitle)
        .outlet("imgSelection", &StandInModeCell::imgSelection)
        .outlet("viewBackground", &StandInModeCell::viewBackground);
    ClassBuilder<StandInHeader>("ModeHeaderView", "UITableViewHeaderFooterView")
        .madeByCoder()
        .outlet("lblHeaderTitle", &StandInHeader::lblHeaderTitle);
    ClassBuilder<StandInMessages>("MessagesViewController", "UIViewController").madeByCoder();
    ClassBuilder<StandInScreen>("CategoriesVC", "UIViewController")
        .madeByCoder()
        .outlet("lblDropDown", &StandInScreen::lblDropDown)
        .outlet("cnBottomOfLetsPlay", &StandInScreen::cnBottomOfLetsPlay)
        .action("btnBackWithSender:", &StandInScreen::btnBack)
        .action("btnLetsPlayWithSender:", &StandInScreen::btnLetsPlay);
}
