#include "platform/interface/AssetCatalogReader.h"

#include "platform/foundation/NSBundle.h"
#include "platform/graphics/ImageDecoder.h"
#include "platform/graphics/cairo/ScaledImages.h"
#include "platform/interface/CatalogSets.h"

#include <algorithm>
#include <set>
#include <utility>

namespace {

/// Finds the sets in folders and the folders in them.
class EntryCollector {
public:
    EntryCollector(const std::filesystem::path& catalog, Findings* findings) : m_findings(findings) {
        std::error_code error;
        const std::filesystem::path whole = std::filesystem::weakly_canonical(catalog, error);
        for (std::filesystem::path around = whole; around.has_relative_path();) {
            around = around.parent_path();
            m_seen.insert(around);
        }
        collect(catalog);
    }

    void collect(const std::filesystem::path& folder) {
        std::error_code error;
        if (!m_seen.insert(std::filesystem::weakly_canonical(folder, error)).second) {
            tell(folder, "this link leads to a folder that is read already, or in a circle");
            return;
        }
        const std::filesystem::directory_iterator end;
        for (std::filesystem::directory_iterator item(folder, error); !error && item != end; item.increment(error)) {
            std::error_code unreadable; // such an item is left out
            if (!item->is_directory(unreadable)) {
                if (unreadable || (item->is_symlink(unreadable) && !item->exists(unreadable))) {
                    tell(item->path(), "this link leads nowhere, or in a circle");
                }
                continue;
            }
            if (item->path().has_extension()) {
                m_entries.push_back({item->path(), item->path().stem().string()});
            } else {
                collect(item->path());
            }
        }
    }
    std::vector<CatalogEntry> take() { return std::move(m_entries); }

private:
    void tell(const std::filesystem::path& path, const char* what) {
        if (m_findings != nullptr) {
            m_findings->push_back({Severity::warning, path.string(), std::nullopt, what});
        }
    }

    Findings* m_findings;
    std::set<std::filesystem::path> m_seen; // by their true paths: links could run in a circle
    std::vector<CatalogEntry> m_entries;
};

} // namespace

std::vector<CatalogEntry> catalogEntries(const std::filesystem::path& catalog, Findings* findings) {
    std::vector<CatalogEntry> entries = EntryCollector(catalog, findings).take();
    std::sort(entries.begin(), entries.end(),
              [](const CatalogEntry& one, const CatalogEntry& other) { return one.folder < other.folder; });
    return entries;
}

std::filesystem::path catalogFolder(const NSBundle& bundle) {
    const std::filesystem::path usual = bundle.bundlePath() / "Assets.xcassets";
    std::error_code error;
    const bool isTakenAway = std::filesystem::exists(usual, error); // though the bundle does not give it
    return bundle.URLForResource("Assets", "xcassets").value_or(isTakenAway ? std::filesystem::path() : usual);
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
