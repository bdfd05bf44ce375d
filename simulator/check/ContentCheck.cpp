#include "simulator/check/ContentCheck.h"

#include "content/CurrentOption.h"
#include "content/ModeListDecoder.h"
#include "platform/foundation/FileReading.h"
#include "platform/foundation/Nearest.h"
#include "platform/foundation/Text.h"
#include "simulator/check/ListCheck.h"
#include "simulator/check/Rules.h"
#include "simulator/check/TextEncoding.h"

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// What decides in the end: a file that the extension refuses has an error, whatever else was found.
void addRefusal(std::string_view text, const std::string& path, Findings& findings) {
    const auto decoded =
        hasErrors(findings) ? Result(std::vector<ModeSectionDTO>()) : decodeModeList(std::string(text));
    if (!decoded) {
        const Failure& failure = decoded.failure();
        findings.push_back(findingOf("content.syntax", path, failure.place, failure.what));
    }
}

} // namespace

Findings checkContentText(std::string_view whole, const std::string& path) {
    if (const std::string encoding = foreignEncoding(whole); !encoding.empty()) {
        return {findingOf("content.encoding", path, std::nullopt, "the file is " + encoding + "; save it as UTF-8")};
    }
    whole.remove_prefix(whole.starts_with(byteOrderMark) ? byteOrderMark.size() : 0);
    const std::size_t invalid = firstInvalidUTF8(whole);
    const std::string text = readableText(whole);
    const TextPlaces places(text);
    Slips slips;
    checkList(readTolerantly(text, slips), places, slips);
    Findings findings = slips.findings(places, path);
    if (invalid != std::string_view::npos) {
        findings.push_back(findingOf("content.encoding", path, places.at(invalid),
                                     "the file is not UTF-8 (Latin-1, perhaps); save it as UTF-8"));
    }
    addRefusal(text, path, findings);
    tidy(findings);
    return findings;
}

Result<Findings> checkContent(const std::filesystem::path& file) {
    const Result<std::string> text = readWholeFile(file);
    if (!text) {
        return text.failure();
    }
    return checkContentText(text.value(), file.string());
}

bool isNamedAsList(const std::filesystem::path& file) {
    const auto ending = [](const std::filesystem::path& path) { return lowercased(path.extension().string()); };
    return ending(ending(file) == ".txt" ? file.stem() : file) == ".json";
}

Findings checkContentName(const std::filesystem::path& file, ContentPlace place) {
    const std::string name = file.filename().string();
    std::vector<std::string> known;
    for (const CurrentOption option : contentLoadOrder()) {
        known.push_back(rawValue(option));
        if (known.back() + ".json" == name) {
            return {};
        }
    }
    const auto nearest = nearestName(name.substr(0, name.find('.')), known);
    if (!nearest && place == ContentPlace::elsewhere) {
        return {};
    }
    return {findingOf("content.file-name", file.string(), std::nullopt,
                      "no list of the extension is named \"" + name + "\", so it is not read" +
                          (nearest ? "; did you mean \"" + *nearest + ".json\"?" : ""))};
}
