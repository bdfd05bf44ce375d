#include "simulator/check/DocumentCross.h"

#include "platform/graphics/UIColor.h"
#include "platform/graphics/UIImage.h"
#include "platform/runtime/ClassRegistry.h"
#include "simulator/check/CatalogCheck.h"
#include "simulator/check/KnownMarkup.h"
#include "simulator/check/Rules.h"

#include <algorithm>
#include <map>
#include <set>

namespace {

bool contains(const std::vector<std::string>& names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// Looks through the elements of one document.
class CrossCheck {
public:
    explicit CrossCheck(const InterfaceDocument& document) : m_document(document) {}

    Findings check() {
        walk(m_document.root(), "");
        return std::move(m_findings);
    }

private:
    void walk(const InterfaceElement& element, std::string_view parent) {
        if (!isRead(element, parent)) {
            return;
        }
        checkAttributes(element);
        if (element.name == "placeholder") {
            checkOwner(element);
        } else {
            checkOutlets(element);
        }
        checkReuseIdentifier(element);
        checkImages(element);
        checkColor(element);
        const bool holdsObjects = element.name == "objects";
        m_inObjects += holdsObjects ? 1 : 0;
        for (const InterfaceElement& child : element.children) {
            if (m_inObjects > 0) {
                checkId(child);
            }
            walk(child, element.name);
        }
        m_inObjects -= holdsObjects ? 1 : 0;
    }

    /// Whether an element has an effect here. What does not, with all inside it, is told once; objects of an unknown
    /// kind are told when the objects are made.
    bool isRead(const InterfaceElement& element, std::string_view parent) {
        const bool isKnown = contains(knownElements(), element.name);
        if (contains(elementsWithoutEffect(), element.name)) {
            tell("interface.ignored", element, "has no effect here, with all inside");
        } else if (!isKnown && parent != "objects" && parent != "subviews") {
            tell("interface.unknown-element", element,
                 "no interface document has such an element; it is passed over, with all inside" +
                     suggestionInQuotes(element.name, knownElements()));
        } else {
            return isKnown && element.name != "resources"; // which lists what the other elements use
        }
        return false;
    }

    void checkAttributes(const InterfaceElement& element) {
        const std::vector<std::string>& known = knownAttributes(element.name);
        std::set<std::string_view> names;
        for (const auto& [name, value] : element.attributes) {
            if (!names.insert(name).second) {
                tell("interface.refused", element, "the attribute " + inQuotes(name) + " stands here twice");
            } else if (!known.empty() && !contains(known, name)) {
                tell("interface.unknown-attribute", element,
                     "the attribute " + inQuotes(name) + " is not known, and is passed over" +
                         suggestionInQuotes(name, known));
            }
            checkWord(element, name, value);
        }
    }

    void checkWord(const InterfaceElement& element, const std::string& name, const std::string& value) {
        const std::vector<std::string> words = knownWords(element.name, name);
        if (!words.empty() && !contains(words, value)) {
            tell("interface.ignored", element,
                 name + " is " + inQuotes(value) + ", which has no meaning" + suggestionInQuotes(value, words));
        }
    }

    /// Placeholders have the same ids in every scene.
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

    /// Whoever loads the nib is its owner, and is not there when it is checked.
    void checkOwner(const InterfaceElement& element) {
        const std::string name(element.value("customClass"));
        const ObjectClass* owner = ClassRegistry::shared().find(name);
        for (const InterfaceElement& connection : element.inside("connections")) {
            const std::string_view property = connection.value("property");
            if (owner == nullptr) {
                tell("interface.ignored", element,
                     (name.empty() ? "no class is named" : "there is no class " + inQuotes(name)) +
                         ", so that its connections are not checked");
                return;
            }
            if (connection.name == "outlet" && owner->outlets.find(property) == nullptr) {
                tell("interface.refused", connection,
                     name + " has no outlet " + inQuotes(property) +
                         suggestionInQuotes(property, owner->outlets.names()));
            }
        }
    }

    void checkOutlets(const InterfaceElement& element) {
        const ObjectClass* objectClass = ClassRegistry::shared().find(element.value("customClass"));
        std::set<std::string_view> connected;
        for (const InterfaceElement& connection : element.inside("connections")) {
            connected.insert(connection.value("property"));
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

    void checkImages(const InterfaceElement& element) {
        for (const char* key : {"image", "highlightedImage", "selectedImage", "backgroundImage", "value"}) {
            const std::string* name = element.attribute(key);
            const bool isImage = std::string_view(key) != "value" || element.value("type") == "image";
            if (name != nullptr && isImage && element.value("catalog") != "system" && !UIImage::imageNamed(*name)) {
                tellLacking("interface.image", element, "image", *name, ".imageset");
            }
        }
    }

    void checkColor(const InterfaceElement& element) {
        const std::string* name = element.attribute("name");
        const std::string_view key = element.value("key");
        if (element.name != "color" || name == nullptr) {
            return;
        }
        if (!UIColor::colorNamed(*name)) {
            tellLacking("interface.color", element, "colour", *name, ".colorset");
        } else if ((key == "textColor" || key == "titleColor") && !followsDark(*name)) {
            tell("catalog.dark", element,
                 "a text is painted in " + inQuotes(*name) + ", which has no colour for the dark appearance");
        }
    }

    /// A set that is there and cannot be read is told by itself, and so is a catalogue that is not there.
    void tellLacking(std::string_view rule, const InterfaceElement& element, const std::string& kind,
                     const std::string& name, const char* extension) {
        const std::vector<std::string> known = setsOfCatalog(extension);
        if (hasCatalog() && !contains(known, name)) {
            tell(rule, element,
                 "the catalogue has no " + kind + " " + inQuotes(name) + suggestionInQuotes(name, known));
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

} // namespace

Findings crossDocument(const InterfaceDocument& document) {
    return CrossCheck(document).check();
}
