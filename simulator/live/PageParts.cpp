#include "simulator/live/PageParts.h"

#include "platform/foundation/FileReading.h"
#include "simulator/live/EmbeddedPage.h"

#include <algorithm>

std::function<std::optional<std::string>(const std::string&)>
pageParts(const std::optional<std::filesystem::path>& folder) {
    return [folder](const std::string& name) -> std::optional<std::string> {
        const auto parts = embeddedPage();
        const auto part =
            std::find_if(parts.begin(), parts.end(), [&](const EmbeddedPart& known) { return known.name == name; });
        if (part == parts.end()) {
            return std::nullopt;
        }
        if (!folder) {
            return std::string(part->text);
        }
        Result<std::string> text = readWholeFile(*folder / name);
        return text ? std::optional(std::move(text.value())) : std::nullopt;
    };
}
