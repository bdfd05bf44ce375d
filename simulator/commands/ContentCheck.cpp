#include "simulator/commands/ContentCheck.h"

#include "content/ModeListDecoder.h"
#include "platform/foundation/FileReading.h"
#include "platform/foundation/JSONDocument.h"
#include "platform/graphics/UIImage.h"

#include <cstdio>

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

/// The decoder's message names its place in words, at its beginning or end.
Finding decodingFinding(const std::string& file, const std::string& message) {
    Finding finding{file, 0, 0, Severity::error, message};
    if (const std::size_t place = message.rfind("line "); place != std::string::npos) {
        std::sscanf(message.c_str() + place, "line %9d, column %9d", &finding.line, &finding.column);
    }
    return finding;
}

} // namespace

std::vector<Finding> checkContent(const std::filesystem::path& file) {
    const Result<std::string> text = readWholeFile(file);
    if (!text) {
        return {{file.string(), 0, 0, Severity::error, text.error()}};
    }
    if (const auto sections = decodeModeList(text.value()); !sections) {
        return {decodingFinding(file.string(), sections.error())};
    }
    return checkIcons(text.value(), file.string());
}
