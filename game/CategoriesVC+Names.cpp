// What interface files can name of the screen.

#include "game/CategoriesVC.h"

#include "platform/runtime/ClassBuilder.h"

namespace {

void nameUnusedOutlets(ClassBuilder<CategoriesVC>& names) {
    names.unusedOutlet("viewOptions1", &CategoriesVC::viewOptions1)
        .unusedOutlet("viewOptions2", &CategoriesVC::viewOptions2)
        .unusedOutlet("viewOptions3", &CategoriesVC::viewOptions3)
        .unusedOutlet("viewOptions4", &CategoriesVC::viewOptions4)
        .unusedOutlet("imgSelect1", &CategoriesVC::imgSelect1)
        .unusedOutlet("imgSelect2", &CategoriesVC::imgSelect2)
        .unusedOutlet("imgSelect3", &CategoriesVC::imgSelect3)
        .unusedOutlet("imgSelect4", &CategoriesVC::imgSelect4)
        .unusedOutlet("lblFriends", &CategoriesVC::lblFriends)
        .unusedOutlet("lblFamily", &CategoriesVC::lblFamily)
        .unusedOutlet("lblCouple", &CategoriesVC::lblCouple)
        .unusedOutlet("lblRandom", &CategoriesVC::lblRandom);
}

} // namespace

void registerGameClasses() {
    ClassBuilder<CategoriesVC> names("CategoriesVC", "UIViewController");
    names.madeByCoder()
        .outlet("tableView", &CategoriesVC::tableView)
        .outlet("tblDropDown", &CategoriesVC::setTblDropDown)
        .outlet("viewDropDown", &CategoriesVC::viewDropDown)
        .outlet("viewDropDownButton", &CategoriesVC::viewDropDownButton)
        .outlet("lblDropDown", &CategoriesVC::lblDropDown)
        .outlet("imgDropDown", &CategoriesVC::imgDropDown)
        .outlet("cnBottomOfLetsPlay", &CategoriesVC::cnBottomOfLetsPlay)
        .outlet("heightOfTblView", &CategoriesVC::heightOfTblView)
        .needs("tblDropDown")
        .asksFor(AskedResource::Kind::nib, {"ModeTblCell", "VibeDropdownTblCell", "ModeHeaderView"})
        .asksFor(AskedResource::Kind::image, {"drowdown_up", "drowdown_down", "tick_selected", "tick_not_selected"})
        .asksFor(AskedResource::Kind::color, {"AppGreen"})
        .action("btnDropdownWithSender:", &CategoriesVC::btnDropdownWithSender)
        .action("btnBackWithSender:", &CategoriesVC::btnBackWithSender)
        .action("btnOptionsClickedWithSender:", &CategoriesVC::btnOptionsClickedWithSender)
        .action("btnLetsPlayWithSender:", &CategoriesVC::btnLetsPlayWithSender);
    nameUnusedOutlets(names);
}
