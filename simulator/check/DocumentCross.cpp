#include "simulator/check/DocumentCross.h"

#include "platform/foundation/NSBundle.h"
#include "platform/foundation/TextPlaces.h"
#include "platform/graphics/UIColor.h"
#include "platform/graphics/UIImage.h"
#include "platform/interface/AssetCatalogReader.h"
#include "platform/interface/CatalogSets.h"
#include "platform/runtime/ClassRegistry.h"
#include "simulator/check/KnownMarkup.h"
#include "simulator/check/Rules.h"

#include <algorithm>
#include <map>
#include <set>

namespace {

std::string inQuotes(std::string_view text) {
    return std::string("\"").append(text).append("\"");
}

bool contains(const std::vector<std::string>& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// Looks through the elements of one document.
class CrossCheck {
public:
    explicit CrossCheck(const InterfaceDocument& document) : m_document(document) {}

    Findings check() {
        walk(m_document.root(), nullptr);
        return std::move(m_findings);
    }

private:
    void walk(const InterfaceElement& element, const InterfaceElement* parent) {
        checkName(element, parent);
        checkAttributes(element);
        checkOutlets(element);
        checkReuseIdentifier(element);
        const bool holdsObjects = element.name == "objects";
        m_inObjects += holdsObjects ? 1 : 0;
        for (const InterfaceElement& child : element.children) {
            if (m_inObjects > 0) {
                checkId(child);
            }
            walk(child, &element);
        }
        m_inObjects -= holdsObjects ? 1 : 0;
        if (holdsObjects && parent != nullptr && parent->name == "scene") {
            m_ids.erase("-2"); // every scene may have placeholders of its own
        }
    }

    /// Views of an unknown kind are told when the objects are made.
    void checkName(const InterfaceElement& element, const InterfaceElement* parent) {
        const bool isObject = parent != nullptr && (parent->name == "objects" || parent->name == "subviews");
        if (!isObject && !contains(knownElements(), element.name)) {
            tell("interface.unknown-element", element,
                 "no interface document has such an element; it is passed over, with all inside" +
                     suggestionInQuotes(element.name, knownElements()));
        }
    }

    void checkAttributes(const InterfaceElement& element) {
        const std::vector<std::string>& known = knownAttributes(element.name);
        for (const auto& [name, value] : element.attributes) {
            if (!known.empty() && !contains(known, name)) {
                tell("interface.unknown-attribute", element,
                     "the attribute " + inQuotes(name) + " is not known, and is passed over" +
                         suggestionInQuotes(name, known));
            }
        }
    }

    void checkId(const InterfaceElement& element) {
        const std::string id(element.id());
        if (id.empty() || element.name == "placeholder") {
            return;
        }
        const auto [first, isNew] = m_ids.emplace(id, &element);
        if (!isNew) {
            tell("interface.double-id", element,
                 "the <" + first->second->name + "> in line " + std::to_string(first->second->place.line) +
                     " has the id " + inQuotes(id) + ", too");
        }
    }

    void checkOutlets(const InterfaceElement& element) {
        const ObjectClass* objectClass = ClassRegistry::shared().find(element.value("customClass"));
        if (objectClass == nullptr || element.name == "placeholder") {
            return;
        }
        std::set<std::string> connected;
        if (const InterfaceElement* connections = element.child("connections")) {
            for (const InterfaceElement& connection : connections->children) {
                connected.insert(std::string(connection.value("property")));
            }
        }
        for (const ObjectClass* level = objectClass; level != nullptr; level = level->superclass) {
            for (const std::string& outlet : level->neededOutlets) {
                if (connected.count(outlet) == 0) {
                    tell("interface.outlet", element,
                         "the outlet " + inQuotes(outlet) + " of " + objectClass->name + " is not connected");
                }
            }
        }
    }

    void checkReuseIdentifier(const InterfaceElement& element) {
        const std::string* written = element.attribute("reuseIdentifier");
        const std::string* className = element.attribute("customClass");
        if (element.name == "tableViewCell" && written != nullptr && className != nullptr && *written != *className) {
            tell("interface.reuse-identifier", element,
                 "the reuse identifier " + inQuotes(*written) + " is another than the class " + *className +
                     ", by which the nib is registered");
        }
    }

    void tell(std::string_view rule, const InterfaceElement& element, const std::string& what) {
        m_findings.push_back(findingOf(rule, m_document.path(), element.place, element.failure(what).what));
    }

    const InterfaceDocument& m_document;
    std::map<std::string, const InterfaceElement*> m_ids;
    int m_inObjects = 0;
    Findings m_findings;
};

std::vector<JSONValue> listAt(JSONValue object, std::string_view key) {
    const auto list = object.find(key);
    return list ? list->elements() : std::vector<JSONValue>();
}

bool hasDarkColor(const CatalogContents& contents) {
    for (const JSONValue color : listAt(contents.root(), "colors")) {
        for (const JSONValue appearance : listAt(color, "appearances")) {
            if (textAt(appearance, "value") == "dark") {
                return true;
            }
        }
    }
    return false;
}

/// Whether a colour set has a colour for the dark appearance; also when there is none of that name.
bool followsDark(std::string_view name) {
    for (const CatalogEntry& entry : catalogEntries(catalogFolder(NSBundle::mainBundle()))) {
        if (entry.name == name && entry.folder.extension() == ".colorset") {
            Findings told;
            const std::optional<CatalogContents> contents = CatalogContents::read(entry.folder, told);
            return !contents || hasDarkColor(*contents);
        }
    }
    return true;
}

void checkTextColors(const InterfaceDocument& document, const InterfaceElement& element, Findings& findings) {
    const std::string_view key = element.value("key");
    const bool isOfText = element.name == "color" && (key == "textColor" || key == "titleColor");
    if (const std::string* name = isOfText ? element.attribute("name") : nullptr;
        name != nullptr && !followsDark(*name)) {
        findings.push_back(findingOf(
            "catalog.dark", document.path(), element.place,
            element.failure("a text is painted in " + inQuotes(*name) + ", which has no colour for the dark appearance")
                .what));
    }
    for (const InterfaceElement& child : element.children) {
        checkTextColors(document, child, findings);
    }
}

/// Looks up what the code asks for by name.
class AskedCheck {
public:
    AskedCheck(const NSBundle& bundle, std::filesystem::path storyboard)
        : m_bundle(bundle), m_storyboard(std::move(storyboard)) {}

    Findings check() {
        for (const std::string& name : ClassRegistry::shared().names()) {
            const ObjectClass& asking = *ClassRegistry::shared().find(name);
            for (const AskedResource& asked : asking.askedResources) {
                check(asking.name, asked);
            }
        }
        return std::move(m_findings);
    }

private:
    void check(const std::string& asking, const AskedResource& asked) {
        using Kind = AskedResource::Kind;
        const std::string what = asking + " asks for ";
        const std::string catalog = catalogFolder(m_bundle).string();
        switch (asked.kind) {
        case Kind::nib:
            checkNib(asking, asked.name);
            break;
        case Kind::scene:
            checkScene(asking, asked.name);
            break;
        case Kind::image:
            if (!UIImage::imageNamed(asked.name)) {
                tell("interface.image", catalog,
                     what + "the image " + inQuotes(asked.name) + ", which the catalogue lacks");
            }
            break;
        case Kind::color:
        case Kind::textColor:
            if (!UIColor::colorNamed(asked.name)) {
                tell("interface.color", catalog,
                     what + "the colour " + inQuotes(asked.name) + ", which the catalogue lacks");
            } else if (asked.kind == Kind::textColor && !followsDark(asked.name)) {
                tell("catalog.dark", catalog,
                     asking + " paints texts in " + inQuotes(asked.name) +
                         ", which has no colour for the dark appearance");
            }
            break;
        }
    }

    /// A nib of a class's name must begin with an object of that class.
    void checkNib(const std::string& asking, const std::string& name) {
        const std::filesystem::path path = InterfaceDocument::pathIn(m_bundle, name, InterfaceDocument::Kind::nib);
        std::error_code error;
        if (!std::filesystem::exists(path, error)) {
            tell("interface.missing", path.string(),
                 asking + " asks for the nib " + inQuotes(name) + ", which is not there");
            return;
        }
        const InterfaceDocument::Loaded loaded = InterfaceDocument::load(path);
        if (!loaded || loaded.value()->kind() != InterfaceDocument::Kind::nib) {
            return; // that is told of the document
        }
        for (const InterfaceElement& element : loaded.value()->root().child("objects")->children) {
            if (element.name != "placeholder") {
                if (element.value("customClass") != name) {
                    m_findings.push_back(findingOf(
                        "interface.missing", path.string(), element.place,
                        element.failure(asking + " asks for a " + name + ", and the nib begins with another class")
                            .what));
                }
                return;
            }
        }
        tell("interface.missing", path.string(), asking + " asks for a " + name + ", and the nib holds no object");
    }

    void checkScene(const std::string& asking, const std::string& name) {
        const InterfaceDocument::Loaded loaded = InterfaceDocument::load(m_storyboard);
        const Result<InterfaceScene> scene =
            loaded ? loaded.value()->sceneWithIdentifier(name) : Result<InterfaceScene>(InterfaceScene());
        if (!scene) {
            m_findings.push_back(findingOf("interface.missing", m_storyboard.string(), scene.failure().place,
                                           asking + " asks for a scene that is not there: " + scene.failure().what));
        }
    }

    void tell(std::string_view rule, const std::string& path, std::string what) {
        m_findings.push_back(findingOf(rule, path, std::nullopt, std::move(what)));
    }

    const NSBundle& m_bundle;
    std::filesystem::path m_storyboard;
    Findings m_findings;
};

/// Whether the & at `at` begins an entity.
bool isEntity(std::string_view text, std::size_t at) {
    const std::size_t end = text.find(';', at);
    if (end == std::string_view::npos || end - at > 12) {
        return false;
    }
    const std::string_view name = text.substr(at + 1, end - at - 1);
    if (name.starts_with('#')) {
        const bool isHexadecimal = name.substr(1).starts_with('x');
        const std::string_view digits = name.substr(isHexadecimal ? 2 : 1);
        return !digits.empty() && digits.find_first_not_of(isHexadecimal ? "0123456789abcdefABCDEF" : "0123456789") ==
                                      std::string_view::npos;
    }
    return name == "amp" || name == "lt" || name == "gt" || name == "quot" || name == "apos";
}

} // namespace

Findings crossDocument(const InterfaceDocument& document) {
    return CrossCheck(document).check();
}

Findings checkTextColors(const InterfaceDocument& document) {
    Findings findings;
    checkTextColors(document, document.root(), findings);
    return findings;
}

Findings checkMarkup(std::string_view text, const std::string& path) {
    Findings findings;
    const TextPlaces places(text);
    for (std::size_t at = 0; at < text.size(); ++at) {
        const std::string_view rest = text.substr(at);
        const char* end = rest.starts_with("<!--") ? "-->" : rest.starts_with("<![CDATA[") ? "]]>" : nullptr;
        if (end != nullptr) {
            const std::size_t closed = text.find(end, at);
            at = closed == std::string_view::npos ? text.size() : closed;
        } else if (rest.front() == '&' && !isEntity(text, at)) {
            findings.push_back(
                findingOf("interface.ampersand", path, places.at(at), "write &amp; for the character &"));
        }
    }
    return findings;
}

Findings checkAskedResources(const NSBundle& bundle, const std::filesystem::path& mainStoryboard) {
    return AskedCheck(bundle, mainStoryboard).check();
}
