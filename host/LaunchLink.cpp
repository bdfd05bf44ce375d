#include "host/LaunchLink.h"

#include "platform/foundation/NSExtensionContext.h"
#include "platform/foundation/NSURL.h"
#include "platform/uikit/controllers/UIViewController.h"

#include <memory>

namespace {

constexpr const char* scheme = "https";
constexpr const char* webHost = "truths-and-dares.example";
constexpr const char* path = "/Category";

} // namespace

std::optional<NSURL> launchLink(CurrentOption option, const ModeSection& section, const ModeItem& item) {
    NSURLComponents components;
    components.scheme = scheme;
    components.host = webHost;
    components.path = path;
    components.queryItems = {
        {"mainCategory", rawValue(option)},
        {"sectionCategory", section.sectionTitle()},
        {"sectionItem", item.title()},
        {"icon", item.icon()},
    };
    return components.URL();
}

void openCategoryLink(const UIViewController& screen, CurrentOption option, const ModeSection& section,
                      const ModeItem& item) {
    const std::optional<NSURL> link = launchLink(option, section, item);
    const std::shared_ptr<NSExtensionContext> context = screen.extensionContext();
    if (link && context) {
        context->openURLCompletionHandler(*link, nullptr);
    }
}
