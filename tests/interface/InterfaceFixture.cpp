#include "tests/interface/InterfaceFixture.h"

#include "platform/runtime/ClassBuilder.h"
#include "platform/uikit/controllers/UINib.h"
#include "platform/uikit/controls/UIButton.h"
#include "platform/uikit/table/UITableViewHeaderFooterView.h"

void StandInModeCell::awakeFromNib() {
    ++awakenings;
    readyWhenAwoken = lblTitle.get() && viewBackground.get() && viewBackground->layer()->cornerRadius() > 0;
}

InterfaceFixture::InterfaceFixture() {
    ClassBuilder<UIView>("AppView", "UIView").madeByCoder();
    ClassBuilder<UIButton>("GenericButton", "UIButton").madeByCoder();
    ClassBuilder<UIViewController>("MessagesViewController", "UIViewController").madeByCoder();
    ClassBuilder<StandInModeCell>("ModeTblCell", "UITableViewCell")
        .madeByCoder()
        .outlet("lblTitle", &StandInModeCell::lblTitle)
        .outlet("viewBackground", &StandInModeCell::viewBackground);
    ClassBuilder<UITableViewHeaderFooterView>("ModeHeaderView", "UITableViewHeaderFooterView").madeByCoder();
    ClassBuilder<StandInScreen>("CategoriesVC", "UIViewController")
        .madeByCoder()
        .outlet("lblDropDown", &StandInScreen::lblDropDown)
        .outlet("cnBottomOfLetsPlay", &StandInScreen::cnBottomOfLetsPlay)
        .action("btnBackWithSender:", &StandInScreen::btnBack)
        .action("btnLetsPlayWithSender:", &StandInScreen::btnLetsPlay);
}

Result<InterfaceFixture::Objects> InterfaceFixture::instantiate(const std::string& nib,
                                                                const std::shared_ptr<NSObject>& owner) const {
    return UINib::nibWithNibNameBundle(nib, bundle())->instantiateWithOwner(owner);
}

Result<InterfaceFixture::Objects> InterfaceFixture::instantiateObjects(const std::string& objects,
                                                                       const std::shared_ptr<NSObject>& owner) const {
    write("Test.xib", nibWith(objects));
    return instantiate("Test", owner);
}
