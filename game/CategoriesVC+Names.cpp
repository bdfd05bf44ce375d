// What interface files can name of the screen.

#include "game/CategoriesVC.h"

#include "platform/runtime/ClassBuilder.h"

namespace {

void nameUnusedOutlets(ClassBuilder<CategoriesVC>& names) {
    names.outlet("viewOptions1", &CategoriesVC::viewOptions1)
        .outlet("viewOptions2", &CategoriesVC::viewOptions2)
        .outlet("viewOptions3", &CategoriesVC::viewOptions3)
        .outlet("viewOptions4", &CategoriesVC::viewOptions4)
        .outlet("imgSelect1", &CategoriesVC::imgSelect1)
        .outlet("imgSelect2", &CategoriesVC::imgSelect2)
        .outlet("imgSelect3", &CategoriesVC::imgSelect3)
        .outlet("imgSelect4", &CategoriesVC::imgSelect4)
        .outlet("lblFriends", &CategoriesVC::lblFriends)
        .outlet("lblFamily", &CategoriesVC::lblFamily)
        .outlet("lblCouple", &CategoriesVC::lblCouple)
        .outlet("lblRandom", &CategoriesVC::lblRandom);
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
        .action("btnDropdownWithSender:", &CategoriesVC::btnDropdownWithSender)
        .action("btnBackWithSender:", &CategoriesVC::btnBackWithSender)
        .action("btnOptionsClickedWithSender:", &CategoriesVC::btnOptionsClickedWithSender)
        .action("btnLetsPlayWithSender:", &CategoriesVC::btnLetsPlayWithSender);
    nameUnusedOutlets(names);
}
