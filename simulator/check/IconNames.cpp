#include "simulator/check/IconNames.h"

#include "platform/foundation/NSBundle.h"
#include "platform/interface/AssetCatalogReader.h"

#include <algorithm>

std::vector<std::string> iconNames() {
    std::vector<std::string> names;
    for (const CatalogEntry& entry : catalogEntries(catalogFolder(NSBundle::mainBundle()))) {
        if (entry.folder.extension() == ".imageset" && entry.name.starts_with("icon_")) {
            names.push_back(entry.name);
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}
