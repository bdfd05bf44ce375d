#include "simulator/check/ContentCheck.h"

#include "content/ModeListDecoder.h"
#include "platform/foundation/FileReading.h"
#include "platform/foundation/JSONDocument.h"
#include "platform/graphics/UIImage.h"

#include <set>
#include <string_view>
#include <utility>

namespace {

/// Tells each icon of a good list once that the catalogue lacks, and of a great many only how many they are.
Findings checkIcons(const JSONDocument& document, const std::string& file) {
    constexpr std::size_t most = 20; // finding a place takes reading the file up to it
    Findings findings;
    std::set<std::string_view> lacking;
    for (const JSONValue section : document.root().elements()) {
        for (const JSONValue item : section.find("items")->elements()) {
            const JSONValue icon = *item.find("icon");
            const std::string_view name = *icon.string();
            if (!UIImage::imageNamed(name) && lacking.emplace(name).second && lacking.size() <= most) {
                findings.push_back({Severity::warning, file, document.placeOf(icon),
                                    "the asset catalogue has no image '" + std::string(name) + "'"});
            }
        }
    }
    if (lacking.size() > most) {
        findings.push_back(
            {Severity::warning, file, std::nullopt,
             "the asset catalogue lacks " + std::to_string(lacking.size() - most) + " more of the icons"});
    }
    return findings;
}

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
    return checkIcons(document.value(), file.string());
}
