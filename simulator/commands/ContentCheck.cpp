#include "simulator/commands/ContentCheck.h"

#include "content/ModeListDecoder.h"
#include "platform/foundation/FileReading.h"
#include "platform/foundation/JSONDocument.h"
#include "platform/graphics/UIImage.h"

#include <cstdio>
#include <set>
#include <string_view>
#include <utility>

namespace {

/// Tells each icon once that the catalogue lacks, and of a great many only how many they are.
class IconCheck {
public:
    IconCheck(const JSONDocument& document, const std::string& file) : m_document(document), m_file(file) {}

    std::vector<Finding> check() {
        for (const JSONValue section : m_document.root().elements()) {
            if (const std::optional<JSONValue> items = section.find("items")) {
                for (const JSONValue item : items->elements()) {
                    checkItem(item);
                }
            }
        }
        if (m_told.size() > most) {
            m_findings.push_back(
                {m_file, 0, 0, Severity::warning,
                 "the asset catalogue lacks " + std::to_string(m_told.size() - most) + " more of the icons"});
        }
        return std::move(m_findings);
    }

private:
    static constexpr std::size_t most = 20; // finding a place takes reading the file up to it

    void checkItem(JSONValue item) {
        const std::optional<JSONValue> icon = item.find("icon");
        const std::optional<std::string_view> name = icon ? icon->string() : std::nullopt;
        if (!name || UIImage::imageNamed(*name) || !m_told.emplace(*name).second || m_told.size() > most) {
            return;
        }
        const JSONDocument::Position at = m_document.positionOf(*icon);
        m_findings.push_back({m_file, static_cast<int>(at.line), static_cast<int>(at.column), Severity::warning,
                              "the asset catalogue has no image '" + std::string(*name) + "'"});
    }

    const JSONDocument& m_document;
    const std::string& m_file;
    std::set<std::string_view> m_told;
    std::vector<Finding> m_findings;
};

std::vector<Finding> checkIcons(const std::string& text, const std::string& file) {
    const Result<JSONDocument> document = JSONDocument::parse(text);
    return document ? IconCheck(document.value(), file).check() : std::vector<Finding>();
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
