#pragma once

#include <memory>
#include <string_view>
#include <utility>

class UIColor;
class UIImage;

/// Where colours and images are found by name. The process has one current catalogue: that of the running extension.
class AssetCatalog {
public:
    virtual ~AssetCatalog() = default;

    /// Null when the catalogue has no such colour.
    [[nodiscard]] virtual std::shared_ptr<UIColor> colorNamed(std::string_view name) = 0;
    /// Null when the catalogue has no such image. The same name gives the same object.
    [[nodiscard]] virtual std::shared_ptr<UIImage> imageNamed(std::string_view name) = 0;

    /// Null before one is set.
    [[nodiscard]] static AssetCatalog* current() { return s_current.get(); }
    static void setCurrent(std::shared_ptr<AssetCatalog> catalog) { s_current = std::move(catalog); }

private:
    inline static std::shared_ptr<AssetCatalog> s_current;
};
