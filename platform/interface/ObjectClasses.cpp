#include "platform/interface/ObjectClasses.h"

#include "platform/interface/WordTable.h"

namespace {

constexpr WordTable<std::string_view, 11> standardClasses{{
    {"view", "UIView"},
    {"label", "UILabel"},
    {"imageView", "UIImageView"},
    {"button", "UIButton"},
    {"textField", "UITextField"},
    {"control", "UIControl"},
    {"scrollView", "UIScrollView"},
    {"tableView", "UITableView"},
    {"tableViewCell", "UITableViewCell"},
    {"viewController", "UIViewController"},
    {"navigationController", "UINavigationController"},
}};

} // namespace

const ObjectClass* classToMake(const InterfaceElement& element, InterfaceReport& report) {
    const std::string_view* standard = meaningOf(element.name, standardClasses);
    if (standard == nullptr) {
        report.error(element, "unknown element" + suggestionFrom(element.name, standardClasses));
        return nullptr;
    }
    const std::string* custom = element.attribute("customClass");
    const std::string_view name = custom != nullptr ? std::string_view(*custom) : *standard;
    const ObjectClass* found = ClassRegistry::shared().find(name);
    if (found == nullptr) {
        report.error(element, "there is no class \"" + std::string(name) + "\"" +
                                  suggestion(name, ClassRegistry::shared().names()));
    } else if (!found->factory) {
        report.error(element, "interface files cannot make objects of the class " + found->name);
        return nullptr;
    }
    return found;
}
