#include "content/ModeListLoader.h"

#include "content/ModeListDecoder.h"

#include "platform/foundation/DebugConsole.h"
#include "platform/foundation/FileReading.h"
#include "platform/foundation/NSBundle.h"

#include <filesystem>
#include <utility>

namespace {

Result<std::vector<ModeSectionDTO>> readModeList(const std::filesystem::path& path) {
    Result<std::string> text = readWholeFile(path);
    if (!text) {
        return text.failure();
    }
    Result<std::vector<ModeSectionDTO>> sections = decodeModeList(std::move(text).value());
    if (!sections) {
        return Failure{path.filename().string() + ": " + sections.failure().describe()};
    }
    return sections;
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

std::optional<std::vector<ModeSection>> loadModeSections(const std::string& fileName) {
    const std::optional<std::filesystem::path> url = NSBundle::mainBundle().URLForResource(fileName, "json");
    if (!url) {
        print("❌ JSON file not found: " + fileName);
        return std::nullopt;
    }
    Result<std::vector<ModeSectionDTO>> decoded = readModeList(*url);
    if (!decoded) {
        print("❌ JSON Decode Error: " + decoded.failure().what);
        return std::nullopt;
    }
    std::vector<ModeSection> sections;
    sections.reserve(decoded.value().size());
    for (ModeSectionDTO& dto : decoded.value()) {
        sections.push_back(modeSectionFrom(std::move(dto)));
    }
    return sections;
}
