#pragma once

#include <filesystem>
#include <initializer_list>
#include <map>
#include <optional>
#include <string>
#include <string_view>

/// A folder of resources, looked up by exact name. The host names the main bundle once before it starts the extension;
/// from then on it is read-only and may be used from any thread.
class NSBundle {
public:
    explicit NSBundle(std::filesystem::path path) : m_path(std::move(path)) {}
    NSBundle(const NSBundle&) = delete;
    NSBundle& operator=(const NSBundle&) = delete;

    /// Before the host has named one, a bundle that holds nothing.
    [[nodiscard]] static NSBundle& mainBundle();
    /// Replaces the main bundle; references to the earlier one die.
    static void setMainBundle(std::filesystem::path path);

    [[nodiscard]] const std::filesystem::path& bundlePath() const { return m_path; }
    /// Where the resource lies, directly in the bundle; none when there is nothing of exactly that name. It may still
    /// be unreadable or a folder. An empty extension means that the name is complete. Selector
    /// URLForResource:withExtension:
    [[nodiscard]] std::optional<std::filesystem::path> URLForResource(std::string_view name,
                                                                      std::string_view extension) const;
    /// Lets `path` take the place of the resource `fileName` ("Family.json"), whether the bundle has it or not; an
    /// empty path takes the resource away.
    void setResourceOverride(std::string fileName, std::filesystem::path path);
    /// A text of Info.plist, such as {"NSExtension", "NSExtensionMainStoryboard"}; none when the file or a key is
    /// missing or the value is not a text.
    [[nodiscard]] std::optional<std::string>
    objectForInfoDictionaryKeyPath(std::initializer_list<std::string_view> keys) const;

private:
    std::filesystem::path m_path;
    std::map<std::string, std::filesystem::path, std::less<>> m_overrides;
};
