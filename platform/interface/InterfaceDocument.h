#pragma once

#include "platform/foundation/Finding.h"
#include "platform/interface/InterfaceElement.h"

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// One controller of a storyboard and the top-level objects it stands among, itself included.
struct InterfaceScene {
    const InterfaceElement* controller = nullptr;
    const InterfaceElement* objects = nullptr;
};

class InterfaceDocument;

/// What came of reading a file: a document, or what is wrong with the file as a whole.
struct LoadedDocument {
    std::shared_ptr<const InterfaceDocument> document; // null when there is a problem
    Finding problem;
};

/// A parsed interface document: its elements, each with its place in the file. Immutable; objects are made from it
/// again and again. Size and depth are limited, entities are never expanded and a document type is refused.
class InterfaceDocument {
public:
    static constexpr std::size_t largestSize = 8u << 20; // bytes
    static constexpr int greatestDepth = 200;

    enum class Kind { nib, storyboard };

    [[nodiscard]] static LoadedDocument load(const std::filesystem::path& path);
    /// `path` is only told in messages.
    [[nodiscard]] static LoadedDocument parse(std::string path, const std::string& text);

    InterfaceDocument(std::string path, InterfaceElement root);
    InterfaceDocument(const InterfaceDocument&) = delete;
    InterfaceDocument& operator=(const InterfaceDocument&) = delete;

    [[nodiscard]] const std::string& path() const { return *m_path; }
    /// The path's last part.
    [[nodiscard]] std::string_view fileName() const;
    [[nodiscard]] const std::shared_ptr<const std::string>& sharedPath() const { return m_path; }
    [[nodiscard]] const InterfaceElement& root() const { return m_root; }
    [[nodiscard]] Kind kind() const { return m_kind; }
    /// Top-level objects of a nib; null for a storyboard.
    [[nodiscard]] const InterfaceElement* objects() const { return m_root.child("objects"); }
    /// Every scene that has a controller, in file order; none in a nib.
    [[nodiscard]] const std::vector<InterfaceScene>& scenes() const { return m_scenes; }
    /// The scene whose controller has that attribute with that value; null when there is none.
    [[nodiscard]] const InterfaceScene* sceneWith(std::string_view attribute, std::string_view value) const;
    /// The entry of the resources section; null when it is not listed.
    [[nodiscard]] const InterfaceElement* resource(std::string_view element, std::string_view name) const;

private:
    std::shared_ptr<const std::string> m_path;
    InterfaceElement m_root;
    Kind m_kind;
    std::vector<InterfaceScene> m_scenes; // refer to m_root
};
