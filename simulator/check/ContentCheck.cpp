#include "simulator/check/ContentCheck.h"

#include "content/ModeListDecoder.h"
#include "platform/foundation/FileReading.h"
#include "platform/foundation/JSONDocument.h"
#include "platform/graphics/UIImage.h"

#include <set>
#include <string_view>
#include <utility>

namespace {

/// Tells each icon once that the catalogue lacks, and of a great many only how many they are.
class IconCheck {
public:
    IconCheck(const JSONDocument& document, std::string file) : m_document(document), m_file(std::move(file)) {}

    Findings check() {
        for (const JSONValue section : m_document.root().elements()) {
            if (const std::optional<JSONValue> items = section.find("items")) {
                for (const JSONValue item : items->elements()) {
                    checkItem(item);
                }
            }
        }
        if (m_told.size() > most) {
            m_findings.push_back(
                {Severity::warning, m_file, std::nullopt,
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
        m_findings.push_back({Severity::warning, m_file, m_document.placeOf(*icon),
                              "the asset catalogue has no image '" + std::string(*name) + "'"});
    }

    const JSONDocument& m_document;
    std::string m_file;
    std::set<std::string_view> m_told;
    Findings m_findings;
};

} // namespace

Result<Findings> checkContent(const std::filesystem::path& file) {
    Result<std::string> text = readWholeFile(file);
    if (!text) {
        return text.failure();
    }
    const Result<JSONDocument> document = JSONDocument::parse(std::move(text.value()));
    if (!document) {
        return Findings{document.failure().in(file.string())};
    }
    if (const auto sections = decodeModeList(document.value()); !sections) {
        return Findings{sections.failure().in(file.string())};
    }
    return IconCheck(document.value(), file.string()).check();
}
