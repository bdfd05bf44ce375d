#pragma once

#include "platform/foundation/Finding.h"
#include "platform/foundation/JSONDocument.h"
#include "platform/graphics/UIColor.h"
#include "platform/graphics/UIImage.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The Contents.json of one set of an asset catalogue. What is wrong with a set is a warning: the screen goes without
/// that image or colour.
class CatalogContents {
public:
    /// Nothing, with a finding, when the file is missing or no JSON object.
    [[nodiscard]] static std::optional<CatalogContents> read(const std::filesystem::path& folder, Findings& findings);

    [[nodiscard]] JSONValue root() const { return m_document.root(); }
    [[nodiscard]] Finding finding(JSONValue at, const std::string& message) const;
    [[nodiscard]] Finding findingOfKey(const JSONValue::Member& member, const std::string& message) const;

private:
    CatalogContents(std::string path, JSONDocument document)
        : m_path(std::move(path)), m_document(std::move(document)) {}

    std::string m_path;
    JSONDocument m_document;
};

/// The text under a key; empty when there is none.
[[nodiscard]] std::string_view textAt(JSONValue value, std::string_view key);

/// Reads NAME.colorset: the light colour and, where given, the dark one. Null, with findings, when it is broken.
[[nodiscard]] std::shared_ptr<UIColor> readColorSet(const std::filesystem::path& folder, Findings& findings);
/// Reads NAME.imageset: the files for a phone, else those for any device. Null when no file is named (an empty slot is
/// no fault) or the set is broken.
[[nodiscard]] std::shared_ptr<UIImage> readImageSet(const std::filesystem::path& folder, Findings& findings);
/// What is drawn for a file that a set names: the file itself, or for an SVG file the PNG files that the build renders:
/// beside it or, when there are none, in the catalogue of rendered pictures.
[[nodiscard]] std::vector<ImageFile> imageFilesOf(const std::filesystem::path& folder, std::string_view fileName,
                                                  int scale);
/// For the host, once: the catalogue in which the build renders the drawings of catalogues that stand in the tree.
void setRenderedCatalog(std::filesystem::path catalog);
