#pragma once

#include "platform/foundation/Finding.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

/// A bundle resource that the extension sees instead of the real one; no file means that it sees none.
struct ResourceOverride {
    std::string name; // with its extension, for example "Friends.json"
    std::optional<std::string> file;
    std::optional<TextPlace> place = std::nullopt; // of the name, in the flow that asks for this
};

/// Makes the folder the main bundle of this process, with some resources replaced, and the extension's and the
/// platform's classes known by name. It may be an assembled bundle or the sources of one, whose lists stand in
/// content/. Begins afresh at every call; nothing of an earlier extension may be alive.
void openExtensionBundle(const std::filesystem::path& folder, const std::vector<ResourceOverride>& overrides = {});

/// The files and folders of such a folder that an extension can ask for by name.
[[nodiscard]] std::vector<std::filesystem::path> bundleFiles(const std::filesystem::path& folder);

/// Where Info.plist names the storyboard of the extension's first controller, for messages.
inline constexpr const char* mainStoryboardKey = "NSExtension, NSExtensionMainStoryboard";
/// The storyboard named there in the main bundle; absent when there is no such entry.
[[nodiscard]] std::optional<std::string> mainStoryboardName();
