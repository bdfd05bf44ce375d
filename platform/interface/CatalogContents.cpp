#include "platform/interface/CatalogContents.h"

#include "platform/foundation/FileReading.h"

std::optional<CatalogContents> CatalogContents::read(const std::filesystem::path& folder, Findings& findings) {
    const std::string path = (folder / "Contents.json").string();
    Result<std::string> text = readWholeFile(path);
    if (!text) {
        findings.push_back(text.failure().in(path, Severity::warning));
        return std::nullopt;
    }
    Result<JSONDocument> document = JSONDocument::parse(std::move(text).value());
    if (!document) {
        findings.push_back(document.failure().in(path, Severity::warning));
        return std::nullopt;
    }
    if (!document.value().root().is(JSONKind::object)) {
        findings.push_back({Severity::warning, path, TextPlace{}, "an object is expected"});
        return std::nullopt;
    }
    return CatalogContents(path, std::move(document).value());
}

Finding CatalogContents::finding(JSONValue at, const std::string& message) const {
    return {Severity::warning, m_path, m_document.placeOf(at), message};
}

std::string_view textAt(JSONValue value, std::string_view key) {
    const auto found = value.find(key);
    return found ? found->string().value_or(std::string_view()) : std::string_view();
}
