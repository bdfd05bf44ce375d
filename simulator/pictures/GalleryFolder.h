#pragma once

#include "platform/foundation/Finding.h"

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

    /// Makes room for pictures of these names and the page; why that cannot be, else. Nothing is written yet.
    [[nodiscard]] std::optional<Failure> claim(const std::vector<std::string>& names);
    /// Takes back what was claimed and did not stand there before: a gallery without a page would count as somebody
    /// else's.
    void withdraw() const;
    /// Writes the page, index.html, and removes the pictures that only the earlier page shows: without a page that
    /// names them they would count as somebody else's. The last thing to do.
    [[nodiscard]] std::optional<Failure> savePage(const std::string& html) const;

private:
    [[nodiscard]] std::optional<Failure> refusal(const std::string& name) const;

    std::filesystem::path m_folder;
    Overwriting m_overwriting;
    std::set<std::string> m_earlier; // what the earlier page names, itself included; empty: there is none of ours
    std::set<std::string> m_claimed;
    std::set<std::string> m_added; // those claimed that were not there
};

/// A text as part of a file's name: small letters and digits, "adult-18".
[[nodiscard]] std::string fileNameOf(const std::string& text);
