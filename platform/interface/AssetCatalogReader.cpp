#include "platform/interface/AssetCatalogReader.h"

#include "platform/foundation/NSBundle.h"
#include "platform/graphics/ImageDecoder.h"
#include "platform/graphics/cairo/ScaledImages.h"
#include "platform/interface/CatalogSets.h"

#include <algorithm>

namespace {

void collect(const std::filesystem::path& folder, int depth, std::vector<CatalogEntry>& entries) {
    constexpr int deepest = 16; // links could run in a circle
    std::error_code error;
    const std::filesystem::directory_iterator end;
    for (std::filesystem::directory_iterator item(folder, error); !error && item != end; item.increment(error)) {
        std::error_code unreadable; // such an item is left out
        if (!item->is_directory(unreadable)) {
            continue;
        }
        if (item->path().has_extension()) {
            entries.push_back({item->path(), item->path().stem().string()});
        } else if (depth < deepest) {
            collect(item->path(), depth + 1, entries);
        }
    }
}

} // namespace

std::vector<CatalogEntry> catalogEntries(const std::filesystem::path& catalog) {
    std::vector<CatalogEntry> entries;
    collect(catalog, 0, entries);
    std::sort(entries.begin(), entries.end(),
              [](const CatalogEntry& one, const CatalogEntry& other) { return one.folder < other.folder; });
    return entries;
}

std::filesystem::path catalogFolder(const NSBundle& bundle) {
    return bundle.bundlePath() / "Assets.xcassets";
}

void installAssetCatalog() {
    ImageDecoder::shared().forget();
    ScaledImages::shared().forget();
    AssetCatalog::setCurrent(std::make_shared<AssetCatalogReader>(catalogFolder(NSBundle::mainBundle())));
}

std::shared_ptr<UIColor> AssetCatalogReader::colorNamed(std::string_view name) {
    return remembered(m_colors, name, ".colorset", &readColorSet);
}

std::shared_ptr<UIImage> AssetCatalogReader::imageNamed(std::string_view name) {
    return remembered(m_images, name, ".imageset", &readImageSet);
}

/// A missing or broken entry is remembered as null.
template <class Object, class Read>
std::shared_ptr<Object> AssetCatalogReader::remembered(Remembered<Object>& objects, std::string_view name,
                                                       const char* extension, Read read) {
    const auto known = objects.find(name);
    if (known != objects.end()) {
        return known->second;
    }
    const std::filesystem::path folder = find(name, extension);
    Findings unheard;
    return objects.emplace(name, folder.empty() ? nullptr : read(folder, unheard)).first->second;
}

std::filesystem::path AssetCatalogReader::find(std::string_view name, const char* extension) {
    if (name.empty() || name.find_first_of(std::string_view("/\0", 2)) != std::string_view::npos) {
        return {}; // only a plain name becomes a path, and so never leads outside
    }
    const std::filesystem::path folder = m_folder / std::string(name).append(extension);
    std::error_code error;
    if (std::filesystem::is_directory(folder, error)) {
        return folder;
    }
    if (!m_entries) {
        m_entries = catalogEntries(m_folder);
    }
    for (const CatalogEntry& entry : *m_entries) {
        if (entry.name == name && entry.folder.extension() == extension) {
            return entry.folder;
        }
    }
    return {};
}
