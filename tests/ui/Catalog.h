#pragma once

#include "platform/graphics/AssetCatalog.h"
#include "platform/graphics/UIColor.h"
#include "platform/graphics/UIImage.h"

#include <map>
#include <memory>
#include <string>

namespace support {

/// An asset catalogue that holds what a test puts in.
class Catalog : public AssetCatalog {
public:
    std::shared_ptr<UIColor> colorNamed(std::string_view name) override {
        const auto found = colors.find(name);
        return found == colors.end() ? nullptr : found->second;
    }
    std::shared_ptr<UIImage> imageNamed(std::string_view name) override {
        const auto found = images.find(name);
        return found == images.end() ? nullptr : found->second;
    }
    void addImage(const std::string& name) { images[name] = std::make_shared<UIImage>(name, std::vector<ImageFile>{}); }

    std::map<std::string, std::shared_ptr<UIColor>, std::less<>> colors;
    std::map<std::string, std::shared_ptr<UIImage>, std::less<>> images;
};

/// Makes an empty catalogue the process's own.
inline std::shared_ptr<Catalog> installCatalog() {
    auto catalog = std::make_shared<Catalog>();
    AssetCatalog::setCurrent(catalog);
    return catalog;
}

/// An opaque colour, 0 … 255 a component.
inline RGBA rgb(int red, int green, int blue) {
    return {red / 255.0, green / 255.0, blue / 255.0, 1};
}

} // namespace support
