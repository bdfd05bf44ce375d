#include "platform/foundation/NSBundle.h"

#include <memory>
#include <pugixml.hpp>
#include <system_error>

namespace {

std::unique_ptr<NSBundle>& mainBundleSlot() {
    static auto bundle = std::make_unique<NSBundle>(std::filesystem::path());
    return bundle;
}

/// Names that would lead out of the bundle's own folder name nothing.
bool isFileName(std::string_view name) {
    return name != "." && name != ".." && name.find_first_of(std::string_view("/\0", 2)) == std::string_view::npos;
}

/// The value of a key in a property list's dictionary.
pugi::xml_node valueFor(const pugi::xml_node& dictionary, std::string_view key) {
    for (const pugi::xml_node& entry : dictionary.children("key")) {
        if (entry.child_value() == key) {
            return entry.next_sibling();
        }
    }
    return {};
}

} // namespace

NSBundle& NSBundle::mainBundle() {
    return *mainBundleSlot();
}

void NSBundle::setMainBundle(std::filesystem::path path) {
    mainBundleSlot() = std::make_unique<NSBundle>(std::move(path));
}

std::optional<std::filesystem::path> NSBundle::URLForResource(std::string_view name, std::string_view extension) const {
    std::string fileName(name);
    if (!extension.empty()) {
        fileName.append(".").append(extension);
    }
    if (name.empty() || !isFileName(fileName)) {
        return std::nullopt;
    }
    if (const auto found = m_overrides.find(fileName); found != m_overrides.end()) {
        return found->second.empty() ? std::nullopt : std::optional(found->second);
    }
    std::filesystem::path path = m_path / fileName;
    std::error_code error;
    if (m_path.empty() || !std::filesystem::exists(path, error)) {
        return std::nullopt;
    }
    return path;
}

void NSBundle::setResourceOverride(std::string fileName, std::filesystem::path path) {
    m_overrides[std::move(fileName)] = std::move(path);
}

std::optional<std::string>
NSBundle::objectForInfoDictionaryKeyPath(std::initializer_list<std::string_view> keys) const {
    pugi::xml_document document;
    if (const auto path = URLForResource("Info", "plist")) {
        document.load_file(path->c_str());
    }
    pugi::xml_node value = document.child("plist").child("dict");
    for (const std::string_view key : keys) {
        value = valueFor(value, key);
    }
    if (std::string_view(value.name()) != "string") {
        return std::nullopt;
    }
    return value.child_value();
}
