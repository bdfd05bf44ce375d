#include "content/ModeListLoader.h"

#include "content/ModeListDecoder.h"

#include "platform/foundation/DebugConsole.h"
#include "platform/foundation/FileReading.h"
#include "platform/foundation/NSBundle.h"

#include <filesystem>
#include <utility>

namespace {

std::optional<Failure> readModeList(const std::filesystem::path& path, std::string& text,
                                    std::vector<ModeSection>& sections) {
    if (std::optional<Failure> failure = readWholeFile(path, text)) {
        return failure;
    }
    const std::optional<Failure> failure = decodeModeList(
        text, [&sections](ModeSectionDTO&& dto) { sections.push_back(modeSectionFrom(std::move(dto))); });
    return failure ? std::optional(Failure{path.filename().string() + ": " + failure->describe()}) : std::nullopt;
}

} // namespace

ModeSection modeSectionFrom(ModeSectionDTO&& dto) {
    std::vector<ModeItem> items;
    items.reserve(dto.m_items.size());
    for (ModeItemDTO& item : dto.m_items) {
        items.emplace_back(std::move(item.m_icon), std::move(item.m_title), std::move(item.m_subtitle),
                           item.m_isSelected);
    }
    return {std::move(dto.m_sectionTitle), std::move(items)};
}

std::optional<std::vector<ModeSection>> loadModeSections(const std::string& fileName, std::string& text) {
    const std::optional<std::filesystem::path> url = NSBundle::mainBundle().URLForResource(fileName, "json");
    if (!url) {
        print("❌ JSON file not found: " + fileName);
        return std::nullopt;
    }
    std::vector<ModeSection> sections;
    if (const std::optional<Failure> failure = readModeList(*url, text, sections)) {
        print("❌ JSON Decode Error: " + failure->what);
        return std::nullopt;
    }
    return sections;
}

std::optional<std::vector<ModeSection>> loadModeSections(const std::string& fileName) {
    std::string text;
    return loadModeSections(fileName, text);
}
