#pragma once

#include "platform/foundation/Finding.h"
#include "platform/foundation/JSONDocument.h"

#include <filesystem>
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

private:
    CatalogContents(std::string path, JSONDocument document)
        : m_path(std::move(path)), m_document(std::move(document)) {}

    std::string m_path;
    JSONDocument m_document;
};

/// The text under a key; empty when there is none.
[[nodiscard]] std::string_view textAt(JSONValue value, std::string_view key);
