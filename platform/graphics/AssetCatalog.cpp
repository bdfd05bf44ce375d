#include "platform/graphics/AssetCatalog.h"

#include <utility>

namespace {

std::shared_ptr<AssetCatalog>& currentCatalog() {
    static std::shared_ptr<AssetCatalog> catalog;
    return catalog;
}

} // namespace

AssetCatalog* AssetCatalog::current() {
    return currentCatalog().get();
}

void AssetCatalog::setCurrent(std::shared_ptr<AssetCatalog> catalog) {
    currentCatalog() = std::move(catalog);
}
