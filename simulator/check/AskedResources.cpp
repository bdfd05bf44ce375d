#include "simulator/check/AskedResources.h"

#include "platform/foundation/NSBundle.h"
#include "platform/graphics/UIColor.h"
#include "platform/graphics/UIImage.h"
#include "platform/interface/AssetCatalogReader.h"
#include "platform/interface/InterfaceDocument.h"
#include "platform/runtime/ClassRegistry.h"
#include "simulator/check/CatalogCheck.h"
#include "simulator/check/Rules.h"

#include <algorithm>

namespace {

using Kind = AskedResource::Kind;

/// A class that asks, and where the answers lie.
struct Question {
    const std::string& asking;
    const std::string& name;
    const NSBundle& bundle;
    const std::filesystem::path& storyboard;
};

/// A nib of a class's name must begin with an object of that class.
std::optional<Finding> checkNib(const Question& question) {
    const auto path = InterfaceDocument::pathIn(question.bundle, question.name, InterfaceDocument::Kind::nib);
    const auto missing = [&](std::optional<TextPlace> place, const std::string& what) {
        return findingOf("interface.missing", path.string(), place, what);
    };
    std::error_code error;
    if (!std::filesystem::exists(std::filesystem::symlink_status(path, error))) {
        return missing({}, question.asking + " asks for the nib " + inQuotes(question.name) + ", which is not there");
    }
    const InterfaceDocument::Loaded loaded = InterfaceDocument::load(path);
    if (!loaded || loaded.value()->kind() != InterfaceDocument::Kind::nib) {
        return std::nullopt; // that is told of the document
    }
    const std::vector<InterfaceElement>& objects = loaded.value()->root().inside("objects");
    const auto first = std::find_if(objects.begin(), objects.end(),
                                    [](const InterfaceElement& element) { return element.name != "placeholder"; });
    const std::string what = question.asking + " asks for a " + question.name + ", and the nib ";
    if (first == objects.end()) {
        return missing({}, what + "holds no object");
    }
    return first->value("customClass") == question.name
               ? std::nullopt
               : std::optional(missing(first->place, first->failure(what + "begins with another class").what));
}

std::optional<Finding> checkScene(const Question& question) {
    const InterfaceDocument::Loaded loaded = InterfaceDocument::load(question.storyboard);
    const Result<InterfaceScene> scene =
        loaded ? loaded.value()->sceneWithIdentifier(question.name) : Result<InterfaceScene>(InterfaceScene());
    return scene ? std::nullopt
                 : std::optional(
                       findingOf("interface.missing", question.storyboard.string(), scene.failure().place,
                                 question.asking + " asks for a scene that is not there: " + scene.failure().what));
}

/// An image or a colour.
std::optional<Finding> checkSet(const Question& question, Kind kind) {
    const bool isImage = kind == Kind::image;
    const std::string catalog = catalogFolder(question.bundle).string();
    const bool isThere =
        isImage ? UIImage::imageNamed(question.name) != nullptr : UIColor::colorNamed(question.name) != nullptr;
    if (isThere) {
        return kind != Kind::textColor || followsDark(question.name)
                   ? std::nullopt
                   : std::optional(findingOf("catalog.dark", catalog, std::nullopt,
                                             question.asking + " paints texts in " + inQuotes(question.name) +
                                                 ", which has no colour for the dark appearance"));
    }
    const std::vector<std::string> known = setsOfCatalog(isImage ? ".imageset" : ".colorset");
    if (!hasCatalog() || std::find(known.begin(), known.end(), question.name) != known.end()) {
        return std::nullopt; // that is told of the catalogue
    }
    return findingOf(isImage ? "interface.image" : "interface.color", catalog, std::nullopt,
                     question.asking + " asks for the " + (isImage ? "image " : "colour ") + inQuotes(question.name) +
                         ", which the catalogue lacks" + suggestionInQuotes(question.name, known));
}

} // namespace

Findings checkAskedResources(const NSBundle& bundle, const std::filesystem::path& mainStoryboard) {
    Findings findings;
    for (const std::string& name : ClassRegistry::shared().names()) {
        const ObjectClass& asking = *ClassRegistry::shared().find(name);
        for (const AskedResource& asked : asking.askedResources) {
            const Question question{asking.name, asked.name, bundle, mainStoryboard};
            std::optional<Finding> finding = asked.kind == Kind::nib     ? checkNib(question)
                                             : asked.kind == Kind::scene ? checkScene(question)
                                                                         : checkSet(question, asked.kind);
            if (finding) {
                findings.push_back(*std::move(finding));
            }
        }
    }
    return findings;
}
