#pragma once

#include "platform/foundation/Result.h"
#include "platform/graphics/Bitmap.h"

#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <vector>

enum class Overwriting { own, everything };

/// A folder of pictures and a page that shows them. Files that it did not write itself are left alone unless asked; its
/// own are those that its page of an earlier time names.
class GalleryFolder {
public:
    GalleryFolder(std::filesystem::path folder, Overwriting overwriting);

    /// Why a file of that name may not be written; absent when it may.
    [[nodiscard]] std::optional<Failure> refusal(const std::string& name) const;
    [[nodiscard]] std::optional<Failure> save(const Bitmap& picture, const std::string& name);
    /// Lists a picture on the page.
    void show(const std::string& name, const std::string& caption) { m_shown.push_back({name, caption}); }
    /// Writes the page, index.html, and removes the pictures that only the earlier page shows: without a page that
    /// names them they would count as somebody else's. The last thing to do.
    [[nodiscard]] std::optional<Failure> savePage();

private:
    struct Shown {
        std::string name;
        std::string caption;
    };
    void removeEarlierPictures() const;

    std::filesystem::path m_folder;
    Overwriting m_overwriting;
    std::set<std::string> m_earlier; // what the earlier page names, itself included; empty: there is none of ours
    std::set<std::string> m_written;
    std::vector<Shown> m_shown;
};

/// A text as part of a file's name: small letters and digits, "adult-18".
[[nodiscard]] std::string fileNameOf(const std::string& text);
