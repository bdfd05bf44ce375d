#include "platform/interface/InterfaceCheck.h"

#include "platform/interface/AssetCatalogReader.h"
#include "platform/interface/CatalogEntries.h"
#include "platform/interface/CatalogSets.h"
#include "platform/interface/NibMaker.h"
#include "platform/interface/SceneMaker.h"
#include "platform/uikit/controllers/UIViewController.h"
#include "platform/uikit/view/UIView.h"

#include <algorithm>
#include <array>

namespace {

std::vector<std::filesystem::path> documentsOf(const NSBundle& bundle) {
    std::vector<std::filesystem::path> paths;
    std::error_code error;
    for (const auto& item : std::filesystem::directory_iterator(bundle.bundlePath(), error)) {
        const std::filesystem::path extension = item.path().extension();
        if (extension == ".xib" || extension == ".storyboard") {
            paths.push_back(item.path());
        }
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

/// Warns of images and colours that an element and all inside it name and the catalogue lacks.
void checkNames(const InterfaceElement& element, InterfaceReport& report) {
    if (element.name == "resources") {
        return; // lists what the other elements use
    }
    static constexpr std::array<std::string_view, 4> imageKeys = {"image", "highlightedImage", "selectedImage",
                                                                  "backgroundImage"};
    const auto checkImage = [&](const std::string* name) {
        if (name != nullptr && element.value("catalog") != "system" && !UIImage::imageNamed(*name)) {
            report.warning(element, "the catalogue has no image \"" + *name + "\"");
        }
    };
    for (const std::string_view key : imageKeys) {
        checkImage(element.attribute(key));
    }
    if (element.name == "userDefinedRuntimeAttribute" && element.value("type") == "image") {
        checkImage(element.attribute("value"));
    }
    const std::string* name = element.attribute("name");
    if (element.name == "color" && name != nullptr && !UIColor::colorNamed(*name)) {
        report.warning(element, "the catalogue has no colour \"" + *name + "\"");
    }
    for (const InterfaceElement& child : element.children) {
        checkNames(child, report);
    }
}

void checkDocument(const std::filesystem::path& path, Findings& findings) {
    const LoadedDocument loaded = InterfaceDocument::load(path);
    if (!loaded.document) {
        findings.push_back(loaded.problem);
        return;
    }
    const InterfaceDocument& document = *loaded.document;
    InterfaceReport report(document.path());
    for (const InterfaceScene& scene : document.scenes()) {
        if (const auto controller = makeSceneController(scene, document, report)) {
            static_cast<void>(makeSceneView(scene, controller, document, report));
        }
    }
    if (document.kind() == InterfaceDocument::Kind::nib) {
        static_cast<void>(makeNibObjects(nullptr, document, report));
    }
    checkNames(document.root(), report);
    findings.insert(findings.end(), report.findings().begin(), report.findings().end());
}

void checkCatalog(const std::filesystem::path& catalog, Findings& findings) {
    for (const CatalogEntry& entry : catalogEntries(catalog)) {
        if (entry.folder.extension() == ".colorset") {
            static_cast<void>(readColorSet(entry.folder, findings));
        } else if (entry.folder.extension() == ".imageset") {
            static_cast<void>(readImageSet(entry.folder, entry.name, findings));
            checkImageFiles(entry.folder, findings);
        }
    }
}

} // namespace

Findings checkBundle(const NSBundle& bundle) {
    Findings findings;
    for (const std::filesystem::path& path : documentsOf(bundle)) {
        checkDocument(path, findings);
    }
    checkCatalog(catalogFolder(bundle), findings);
    return findings;
}
