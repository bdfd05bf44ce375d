#include "platform/interface/ObjectClasses.h"

#include "platform/foundation/Nearest.h"

#include <array>
#include <utility>

namespace {

constexpr std::array<std::pair<std::string_view, std::string_view>, 11> standardClasses{{
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

std::string standardClassOf(const InterfaceElement& element, InterfaceReport& report) {
    std::vector<std::string> known;
    for (const auto& [name, className] : standardClasses) {
        if (name == element.name) {
            return std::string(className);
        }
        known.emplace_back(name);
    }
    report.error(element, "unknown element" + suggestion(element.name, known));
    return {};
}

} // namespace

const ObjectClass* classToMake(const InterfaceElement& element, InterfaceReport& report) {
    const std::string standard = standardClassOf(element, report);
    if (standard.empty()) {
        return nullptr;
    }
    const std::string* custom = element.attribute("customClass");
    const std::string& name = custom != nullptr ? *custom : standard;
    const ObjectClass* found = ClassRegistry::shared().find(name);
    if (found == nullptr) {
        report.error(element, "there is no class \"" + name + "\"" + suggestion(name, ClassRegistry::shared().names()));
    } else if (!found->factory) {
        report.error(element, "interface files cannot make objects of the class " + name);
        return nullptr;
    }
    return found;
}
