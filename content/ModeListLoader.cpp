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

ModeItem itemFrom(ModeItemDTO&& dto) {
    return {.icon = std::move(dto.icon),
            .title = std::move(dto.title),
            .subtitle = std::move(dto.subtitle),
            .isSelected = dto.isSelected};
}

ModeSection sectionFrom(ModeSectionDTO&& dto) {
    ModeSection section{.sectionTitle = std::move(dto.sectionTitle), .items = {}};
    section.items.reserve(dto.items.size());
    for (ModeItemDTO& item : dto.items) {
        section.items.push_back(itemFrom(std::move(item)));
    }
    return section;
}

} // namespace

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
        sections.push_back(sectionFrom(std::move(dto)));
    }
    return sections;
}
