#pragma once

#include "platform/foundation/Finding.h"
#include "platform/graphics/AssetCatalog.h"
#include "platform/graphics/UIColor.h"
#include "platform/graphics/UIImage.h"

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

class NSBundle;

/// One set of an asset catalogue: its folder ("NAME.imageset") and the name it is asked for by.
struct CatalogEntry {
    std::filesystem::path folder;
    std::string name;
};

/// All sets of a catalogue, those in groups included, sorted by path. Nothing for a folder that cannot be read. A link
/// that leads back to a folder around it is left out, and warned of where `findings` are wanted.
[[nodiscard]] std::vector<CatalogEntry> catalogEntries(const std::filesystem::path& catalog,
                                                       Findings* findings = nullptr);
/// Where a bundle keeps its asset catalogue, or what takes its place.
[[nodiscard]] std::filesystem::path catalogFolder(const NSBundle& bundle);
/// Makes the main bundle's catalogue the current one. Called by the host, after NSBundle::setMainBundle and before the
/// extension starts; calling it again starts afresh with the current bundle.
void installAssetCatalog();

/// Reads an asset catalogue as the phone's editor keeps it: each colour or image when it is first asked for by name.
/// A broken entry is as good as none.
class AssetCatalogReader : public AssetCatalog {
public:
    explicit AssetCatalogReader(std::filesystem::path folder) : m_folder(std::move(folder)) {}

    [[nodiscard]] std::shared_ptr<UIColor> colorNamed(std::string_view name) override;
    [[nodiscard]] std::shared_ptr<UIImage> imageNamed(std::string_view name) override;

private:
    template <class Object>
    using Remembered = std::map<std::string, std::shared_ptr<Object>, std::less<>>;

    template <class Object, class Read>
    [[nodiscard]] std::shared_ptr<Object> remembered(Remembered<Object>& objects, std::string_view name,
                                                     const char* extension, Read read);
    /// The folder of an entry; empty when there is none.
    [[nodiscard]] std::filesystem::path find(std::string_view name, const char* extension);

    std::filesystem::path m_folder;
    std::optional<std::vector<CatalogEntry>> m_entries; // listed when a name is first looked for in groups
    Remembered<UIColor> m_colors;
    Remembered<UIImage> m_images;
};
