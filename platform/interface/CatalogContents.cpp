#include "platform/interface/CatalogContents.h"

#include "platform/foundation/FileReading.h"

using Severity = InterfaceFinding::Severity;

std::optional<CatalogContents> CatalogContents::read(const std::filesystem::path& folder,
                                                     std::vector<InterfaceFinding>& findings) {
    const std::string path = (folder / "Contents.json").string();
    Result<std::string> text = readWholeFile(path);
    if (!text) {
        findings.push_back({path, 0, 0, Severity::warning, text.error()});
        return std::nullopt;
    }
    Result<JSONDocument> document = JSONDocument::parse(std::move(text).value());
    if (!document) {
        findings.push_back({path, 0, 0, Severity::warning, document.error()});
        return std::nullopt;
    }
    if (!document.value().root().is(JSONKind::object)) {
        findings.push_back({path, 1, 1, Severity::warning, "an object is expected"});
        return std::nullopt;
    }
    return CatalogContents(path, std::move(document).value());
}

InterfaceFinding CatalogContents::finding(JSONValue at, const std::string& message) const {
    const JSONDocument::Position place = m_document.positionOf(at);
    return {m_path, static_cast<int>(place.line), static_cast<int>(place.column), Severity::warning, message};
}

std::string_view textAt(JSONValue value, std::string_view key) {
    const auto found = value.find(key);
    return found ? found->string().value_or(std::string_view()) : std::string_view();
}
