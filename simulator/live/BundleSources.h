#pragma once

#include "platform/foundation/Finding.h"

#include <filesystem>
#include <map>
#include <optional>

/// The folder that an assembled bundle was made from. What is saved there is taken into the bundle as the build would
/// do it: data flat at the root, the catalogue beside it, icons rendered anew. Owned by whoever shows the bundle live.
class BundleSources {
public:
    BundleSources(std::filesystem::path folder, std::filesystem::path bundle);

    /// Brings the bundle up to date; says what could not be taken over.
    [[nodiscard]] Findings takeOver();
    /// The source of a file of the bundle; the file itself when it has none.
    [[nodiscard]] std::filesystem::path sourceOf(const std::filesystem::path& file) const;

private:
    /// The source of each file of the bundle.
    using Places = std::map<std::filesystem::path, std::filesystem::path>;

    [[nodiscard]] Places places() const;
    static void drop(const std::filesystem::path& place);
    [[nodiscard]] static std::optional<Finding> takeOver(const std::filesystem::path& source,
                                                         const std::filesystem::path& place);

    std::filesystem::path m_folder;
    std::filesystem::path m_bundle;
    Places m_taken;
};
