#include "simulator/commands/ContentCheck.h"

#include "content/ModeListDecoder.h"
#include "platform/foundation/FileReading.h"
#include "platform/foundation/JSONDocument.h"
#include "platform/graphics/UIImage.h"

namespace {

void checkIcon(const JSONDocument& document, JSONValue item, const std::string& file, std::vector<Finding>& findings) {
    const std::optional<JSONValue> icon = item.find("icon");
    const std::optional<std::string_view> name = icon ? icon->string() : std::nullopt;
    if (name && !UIImage::imageNamed(*name)) {
        const JSONDocument::Position at = document.positionOf(*icon);
        findings.push_back({file, static_cast<int>(at.line), static_cast<int>(at.column), Severity::warning,
                            "the asset catalogue has no image '" + std::string(*name) + "'"});
    }
}

std::vector<Finding> checkIcons(const std::string& text, const std::string& file) {
    std::vector<Finding> findings;
    const Result<JSONDocument> document = JSONDocument::parse(text);
    if (!document) {
        return findings;
    }
    for (const JSONValue section : document.value().root().elements()) {
        const std::optional<JSONValue> items = section.find("items");
        if (!items) {
            continue;
        }
        for (const JSONValue item : items->elements()) {
            checkIcon(document.value(), item, file, findings);
        }
    }
    return findings;
}

} // namespace

std::vector<Finding> checkContent(const std::filesystem::path& file) {
    const Result<std::string> text = readWholeFile(file);
    if (!text) {
        return {{file.string(), 0, 0, Severity::error, text.error()}};
    }
    if (const auto sections = decodeModeList(text.value()); !sections) {
        return {{file.string(), 0, 0, Severity::error, sections.error()}};
    }
    return checkIcons(text.value(), file.string());
}
