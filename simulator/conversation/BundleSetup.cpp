#include "simulator/conversation/BundleSetup.h"

#include "game/CategoriesVC.h"
#include "host/MessagesViewController.h"
#include "platform/foundation/NSBundle.h"
#include "platform/interface/AssetCatalogReader.h"
#include "platform/messages/MSMessagesAppViewController.h"
#include "platform/uikit/UIKitClasses.h"
#include "simulator/scenes/CanvasSceneController.h"
#include "ui/UiClasses.h"

void openExtensionBundle(const std::filesystem::path& folder, const std::vector<ResourceOverride>& overrides) {
    registerUIKitClasses();
    registerMessagesClasses();
    registerUiClasses();
    registerHostClasses();
    registerGameClasses();
    registerSceneClasses();
    NSBundle::setMainBundle(folder);
    for (const ResourceOverride& replaced : overrides) {
        NSBundle::mainBundle().setResourceOverride(replaced.name, replaced.file.value_or(""));
    }
    installAssetCatalog();
}

std::optional<std::string> mainStoryboardName() {
    return NSBundle::mainBundle().objectForInfoDictionaryKeyPath({"NSExtension", "NSExtensionMainStoryboard"});
}
