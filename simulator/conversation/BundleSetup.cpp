#include "simulator/conversation/BundleSetup.h"

#include "game/CategoriesVC.h"
#include "host/MessagesViewController.h"
#include "platform/foundation/NSBundle.h"
#include "platform/interface/AssetCatalogReader.h"
#include "platform/messages/MSMessagesAppViewController.h"
#include "platform/uikit/UIKitClasses.h"
#include "simulator/scenes/CanvasSceneController.h"
#include "ui/UiClasses.h"

#include <algorithm>

namespace {

/// None when there is no such folder.
std::vector<std::filesystem::path> filesIn(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> files;
    std::error_code error;
    const std::filesystem::directory_iterator end;
    for (std::filesystem::directory_iterator item(folder, error); !error && item != end; item.increment(error)) {
        files.push_back(item->path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

} // namespace

std::vector<std::filesystem::path> bundleFiles(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> files = filesIn(folder);
    std::erase(files, folder / "content");
    const std::vector<std::filesystem::path> content = filesIn(folder / "content");
    files.insert(files.end(), content.begin(), content.end());
    return files;
}

void openExtensionBundle(const std::filesystem::path& folder, const std::vector<ResourceOverride>& overrides) {
    registerUIKitClasses();
    registerMessagesClasses();
    registerUiClasses();
    registerHostClasses();
    registerGameClasses();
    registerSceneClasses();
    NSBundle::setMainBundle(folder);
    for (const std::filesystem::path& file : filesIn(folder / "content")) {
        NSBundle::mainBundle().setResourceOverride(file.filename().string(), file);
    }
    for (const ResourceOverride& replaced : overrides) {
        NSBundle::mainBundle().setResourceOverride(replaced.name, replaced.file.value_or(""));
    }
    installAssetCatalog();
}

std::optional<std::string> mainStoryboardName() {
    return NSBundle::mainBundle().objectForInfoDictionaryKeyPath({"NSExtension", "NSExtensionMainStoryboard"});
}
