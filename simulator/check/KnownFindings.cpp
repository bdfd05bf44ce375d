#include "simulator/check/KnownFindings.h"

#include "platform/foundation/FileReading.h"
#include "platform/foundation/JSONDocument.h"

#include <algorithm>

Result<std::vector<KnownFinding>> readKnownFindings(const std::filesystem::path& file) {
    Result<std::string> text = readWholeFile(file);
    if (!text) {
        return text.failure();
    }
    const Result<JSONDocument> document = JSONDocument::parse(std::move(text.value()));
    if (!document) {
        return Failure{file.string() + ": " + document.failure().describe()};
    }
    std::vector<KnownFinding> known;
    for (const JSONValue entry : document.value().root().elements()) {
        const auto word = [&](std::string_view key) {
            const auto value = entry.find(key);
            return std::string(value ? value->string().value_or("") : "");
        };
        known.push_back({word("rule"), word("about"), word("reason")});
        if (known.back().rule.empty() || known.back().about.empty() || known.back().reason.empty()) {
            return Failure{file.string() + ": entry " + std::to_string(known.size()) +
                           " needs the texts \"rule\", \"about\" and \"reason\""};
        }
    }
    return known;
}

std::size_t takeKnownOut(Findings& findings, const std::vector<KnownFinding>& known) {
    return std::erase_if(findings, [&](const Finding& finding) {
        return std::any_of(known.begin(), known.end(), [&](const KnownFinding& each) {
            return finding.rule == each.rule && finding.what.find(each.about) != std::string::npos;
        });
    });
}
