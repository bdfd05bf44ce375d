#pragma once

#include "platform/foundation/NSBundle.h"
#include "platform/graphics/AssetCatalog.h"
#include "platform/graphics/UIColor.h"
#include "platform/graphics/UIImage.h"
#include "platform/interface/CatalogEntries.h"

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

/// Where a bundle keeps its asset catalogue.
[[nodiscard]] std::filesystem::path catalogFolder(const NSBundle& bundle);

/// Reads an asset catalogue as the phone's editor keeps it: each colour or image when it is first asked for by name.
/// A broken entry is as good as none; InterfaceCheck tells what is wrong with it.
class AssetCatalogReader : public AssetCatalog {
public:
    explicit AssetCatalogReader(std::filesystem::path folder) : m_folder(std::move(folder)) {}

    [[nodiscard]] std::shared_ptr<UIColor> colorNamed(std::string_view name) override;
    [[nodiscard]] std::shared_ptr<UIImage> imageNamed(std::string_view name) override;

private:
    /// The folder of an entry; empty when there is none.
    [[nodiscard]] std::filesystem::path find(std::string_view name, const char* extension);

    std::filesystem::path m_folder;
    std::optional<std::vector<CatalogEntry>> m_entries; // listed when a name is first looked for in groups
    std::map<std::string, std::shared_ptr<UIColor>, std::less<>> m_colors;
    std::map<std::string, std::shared_ptr<UIImage>, std::less<>> m_images;
};
