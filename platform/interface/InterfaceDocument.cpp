#include "platform/interface/InterfaceDocument.h"

#include "platform/foundation/FileReading.h"
#include "platform/foundation/NSBundle.h"
#include "platform/foundation/Nearest.h"

#include <algorithm>
#include <map>

namespace {

const char* const storyboardType = "com.apple.InterfaceBuilder3.CocoaTouch.Storyboard.XIB";

/// Why this is no document for the phone; empty when it is one.
std::string reasonToRefuse(const InterfaceElement& root) {
    if (root.name == "archive") {
        return "a document of the old form; open it in the editor and save it anew";
    }
    if (root.name != "document") {
        return "no interface document, whose outermost element is <document>";
    }
    const std::string_view type = root.value("type");
    if (type == "com.apple.InterfaceBuilder3.CocoaTouch.XIB") {
        return root.child("objects") ? "" : "the document has no <objects>";
    }
    if (type == storyboardType) {
        return root.child("scenes") ? "" : "the document has no <scenes>";
    }
    const bool desktop = type.find(".Cocoa.") != std::string_view::npos;
    return "type is \"" + std::string(type) + "\", " +
           (desktop ? "a document for the desktop" : "an unknown kind of document") +
           "; one for the phone (CocoaTouch) is expected";
}

/// The object that the editor marks as the scene's controller.
bool isController(const InterfaceElement& object) {
    return object.value("sceneMemberID") == "viewController";
}

std::vector<InterfaceScene> scenesOf(const InterfaceElement& root) {
    std::vector<InterfaceScene> found;
    for (const InterfaceElement& scene : root.inside("scenes")) {
        const std::vector<InterfaceElement>& objects = scene.inside("objects");
        const auto controller = std::find_if(objects.begin(), objects.end(), isController);
        if (controller != objects.end()) {
            found.push_back({&*controller, scene.child("objects")});
        }
    }
    return found;
}

} // namespace

std::filesystem::path InterfaceDocument::pathIn(const NSBundle& bundle, const std::string& name, Kind kind) {
    const char* extension = kind == Kind::nib ? "xib" : "storyboard";
    const std::filesystem::path path = bundle.bundlePath() / (name + "." + extension);
    std::error_code error;
    const bool isTakenAway = std::filesystem::exists(path, error); // though the bundle does not give it
    return bundle.URLForResource(name, extension)
        .value_or(isTakenAway ? std::filesystem::path(path.string() + " (taken away)") : path);
}

InterfaceDocument::Loaded InterfaceDocument::shared(const std::filesystem::path& path, Kind kind) {
    struct Known {
        std::filesystem::file_time_type changed;
        std::shared_ptr<const InterfaceDocument> document;
    };
    static std::map<std::string, Known> documents; // by path
    std::error_code error;
    const auto changed = std::filesystem::last_write_time(path, error);
    auto known = documents.find(path.native());
    if (error || known == documents.end() || known->second.changed != changed) {
        Loaded loaded = load(path);
        if (!loaded) {
            return loaded;
        }
        known = documents.insert_or_assign(path.native(), Known{changed, std::move(loaded).value()}).first;
    }
    const std::shared_ptr<const InterfaceDocument>& document = known->second.document;
    if (document->kind() != kind) {
        return document->root().failure(kind == Kind::nib ? "a storyboard stands where a nib is expected"
                                                          : "a nib stands where a storyboard is expected");
    }
    return document;
}

InterfaceDocument::Loaded InterfaceDocument::load(const std::filesystem::path& path) {
    std::error_code error;
    if (std::filesystem::file_size(path, error) > largestSize && !error) {
        return Failure{"the file is larger than 8 MB"};
    }
    const Result<std::string> text = readWholeFile(path);
    return text ? parse(path.string(), text.value()) : text.failure();
}

InterfaceDocument::Loaded InterfaceDocument::parse(std::string path, const std::string& text) {
    if (text.size() > largestSize) {
        return Failure{"the file is larger than 8 MB"};
    }
    Result<InterfaceElement> root = readElements(text);
    if (!root) {
        return root.failure();
    }
    if (const std::string reason = reasonToRefuse(root.value()); !reason.empty()) {
        return root.value().failure(reason);
    }
    return std::make_shared<const InterfaceDocument>(std::move(path), std::move(root).value());
}

InterfaceDocument::InterfaceDocument(std::string path, InterfaceElement root)
    : m_path(std::move(path)), m_root(std::move(root)),
      m_kind(m_root.value("type") == storyboardType ? Kind::storyboard : Kind::nib), m_scenes(scenesOf(m_root)) {}

Result<InterfaceScene> InterfaceDocument::initialScene() const {
    const std::string_view id = m_root.value("initialViewController");
    for (const InterfaceScene& scene : m_scenes) {
        if (!id.empty() && scene.controller->id() == id) {
            return scene;
        }
    }
    return m_root.failure("the storyboard has no initial controller");
}

Result<InterfaceScene> InterfaceDocument::sceneWithIdentifier(const std::string& identifier) const {
    std::vector<std::string> known;
    for (const InterfaceScene& scene : m_scenes) {
        known.emplace_back(scene.controller->value("storyboardIdentifier"));
        if (known.back() == identifier && !identifier.empty()) {
            return scene;
        }
    }
    return m_root.failure("there is no scene with the identifier \"" + identifier + "\"" +
                          suggestion(identifier, known));
}

const InterfaceElement* InterfaceDocument::resource(std::string_view element, std::string_view name) const {
    for (const InterfaceElement& entry : m_root.inside("resources")) {
        if (entry.name == element && entry.value("name") == name) {
            return &entry;
        }
    }
    return nullptr;
}
