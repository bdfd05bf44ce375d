#pragma once

#include "platform/interface/InterfaceElement.h"

#include <filesystem>
#include <memory>

class NSBundle;

/// One controller of a storyboard and the top-level objects it stands among, itself included.
struct InterfaceScene {
    const InterfaceElement* controller = nullptr;
    const InterfaceElement* objects = nullptr;
};

/// A parsed interface document: its elements, each with its place in the file. Immutable; objects are made from it
/// again and again. Size and depth are limited, entities are never expanded and a document type is refused.
class InterfaceDocument : public std::enable_shared_from_this<InterfaceDocument> {
public:
    static constexpr std::size_t largestSize = 8u << 20; // bytes

    enum class Kind { nib, storyboard };
    using Loaded = Result<std::shared_ptr<const InterfaceDocument>>;

    /// Where the bundle has the document, or would have to have it.
    [[nodiscard]] static std::filesystem::path pathIn(const NSBundle& bundle, const std::string& name, Kind kind);
    /// A document of that kind, parsed once however often it is asked for, and again when the file has changed. Main
    /// thread only.
    [[nodiscard]] static Loaded shared(const std::filesystem::path& path, Kind kind);
    [[nodiscard]] static Loaded load(const std::filesystem::path& path);
    /// `path` is only told in messages.
    [[nodiscard]] static Loaded parse(std::string path, const std::string& text);

    /// For parse, which makes it shared.
    InterfaceDocument(std::string path, InterfaceElement root);
    InterfaceDocument(const InterfaceDocument&) = delete;
    InterfaceDocument& operator=(const InterfaceDocument&) = delete;

    [[nodiscard]] const std::string& path() const { return m_path; }
    /// The same, and keeps the document.
    [[nodiscard]] std::shared_ptr<const std::string> sharedPath() const { return {shared_from_this(), &m_path}; }
    [[nodiscard]] Kind kind() const { return m_kind; }
    [[nodiscard]] const InterfaceElement& root() const { return m_root; }
    /// Every scene that has a controller, in file order; none in a nib.
    [[nodiscard]] const std::vector<InterfaceScene>& scenes() const { return m_scenes; }
    /// The scene that the storyboard starts with.
    [[nodiscard]] Result<InterfaceScene> initialScene() const;
    [[nodiscard]] Result<InterfaceScene> sceneWithIdentifier(const std::string& identifier) const;
    /// The entry of the resources section; null when it is not listed.
    [[nodiscard]] const InterfaceElement* resource(std::string_view element, std::string_view name) const;

private:
    std::string m_path;
    InterfaceElement m_root;
    Kind m_kind;
    std::vector<InterfaceScene> m_scenes; // refer to m_root
};
