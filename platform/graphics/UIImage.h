#pragma once

#include "platform/foundation/Geometry.h"
#include "platform/runtime/NSObject.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// One PNG file of an image, drawn for screens of `scale` pixels a point.
struct ImageFile {
    std::string path = {};
    int scale = 1;
};

/// An image by reference to its files, immutable. Its size is read from the first readable file's header; pixels are
/// decoded when they are drawn (those of a small image that is about to be shown, shortly before) and kept in a bounded
/// cache. An image whose files are broken has no size and draws nothing.
class UIImage : public NSObject {
public:
    UIImage(std::string name, std::vector<ImageFile> files);

    /// The image of the running extension's asset catalogue; null when it has none of that name.
    [[nodiscard]] static std::shared_ptr<UIImage> imageNamed(std::string_view name);

    [[nodiscard]] const std::string& name() const { return m_name; }
    /// In points.
    [[nodiscard]] CGSize size() const;
    /// Has a small image decoded beside the main thread by the time it is drawn on a screen of `deviceScale`.
    void prepareForDisplay(CGFloat deviceScale) const;
    /// The file to draw on a screen of `deviceScale`: the smallest that is large enough, else the largest; null without
    /// files.
    [[nodiscard]] const ImageFile* fileForScale(CGFloat deviceScale) const;

private:
    std::string m_name;
    std::vector<ImageFile> m_files;       // those for the least scale first
    mutable std::optional<CGSize> m_size; // absent until somebody asks
};
