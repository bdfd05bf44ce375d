#include "simulator/check/InterfaceCheck.h"

#include "platform/foundation/FileReading.h"
#include "platform/foundation/TextPlaces.h"
#include "platform/interface/AssetCatalogReader.h"
#include "platform/interface/NibBuilder.h"
#include "platform/uikit/controllers/UIViewController.h"
#include "platform/uikit/view/UIView.h"
#include "simulator/check/AskedResources.h"
#include "simulator/check/CatalogCheck.h"
#include "simulator/check/DocumentCross.h"
#include "simulator/check/FoldedFindings.h"
#include "simulator/check/Rules.h"

#include <algorithm>

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> documentsOf(const NSBundle& bundle) {
    std::vector<fs::path> paths;
    std::error_code error;
    for (fs::directory_iterator item(bundle.bundlePath(), error); !error && item != fs::directory_iterator();
         item.increment(error)) {
        const fs::path extension = item->path().extension();
        if (extension == ".xib" || extension == ".storyboard") {
            paths.push_back(item->path());
        }
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

void append(Findings& findings, const Findings& more) {
    findings.insert(findings.end(), more.begin(), more.end());
}

/// Whether a text begins with an entity.
bool beginsWithEntity(std::string_view text) {
    const std::string_view name = text.substr(1, std::min<std::size_t>(text.find(';'), 12) - 1);
    if (name.starts_with('#')) {
        const bool isHexadecimal = name.substr(1).starts_with('x');
        const std::string_view digits = name.substr(isHexadecimal ? 2 : 1);
        const char* allowed = isHexadecimal ? "0123456789abcdefABCDEF" : "0123456789";
        return !digits.empty() && digits.find_first_not_of(allowed) == std::string_view::npos;
    }
    return name == "amp" || name == "lt" || name == "gt" || name == "quot" || name == "apos";
}

/// XML readers on the phone refuse a bare &, which the one here takes for itself.
Findings checkAmpersands(std::string_view text, const std::string& path) {
    Findings findings;
    const TextPlaces places(text);
    for (std::size_t at = text.find_first_of("&<"); at != std::string_view::npos; at = text.find_first_of("&<", at)) {
        const std::string_view rest = text.substr(at);
        const char* end = rest.starts_with("<!--") ? "-->" : rest.starts_with("<![CDATA[") ? "]]>" : nullptr;
        if (rest.front() == '&' && !beginsWithEntity(rest)) {
            findings.push_back(
                findingOf("interface.ampersand", path, places.at(at), "write &amp; for the character &"));
        }
        at = end != nullptr ? text.find(end, at) : at + 1;
    }
    return findings;
}

/// What making all objects finds: of the nib, or of each scene with its view.
Findings tryObjects(const InterfaceDocument& document) {
    Findings findings;
    for (const InterfaceScene& scene : document.scenes()) {
        NibBuilder builder(document);
        const auto controller = builder.makeController(scene);
        append(findings, builder.findings());
        if (controller) {
            NibBuilder viewBuilder(document);
            static_cast<void>(viewBuilder.makeView(scene, controller));
            append(findings, viewBuilder.findings());
        }
    }
    if (document.kind() == InterfaceDocument::Kind::nib) {
        NibBuilder builder(document);
        static_cast<void>(builder.makeNib(nullptr));
        append(findings, builder.findings());
    }
    for (Finding& finding : findings) { // the phone refuses it, too, or it has no effect here
        finding.rule = finding.severity == Severity::error ? "interface.refused" : "interface.ignored";
    }
    return findings;
}

/// From the main document the host makes the extension's first controller.
enum class DocumentRole { main, other };

Findings checkDocument(const fs::path& path, DocumentRole role) {
    const InterfaceDocument::Loaded loaded = InterfaceDocument::load(path);
    if (!loaded) {
        return {findingOf("interface.unreadable", path.string(), loaded.failure().place, loaded.failure().what)};
    }
    const InterfaceDocument& document = *loaded.value();
    Findings findings = crossDocument(document);
    const Result<std::string> text = readWholeFile(path);
    append(findings, text ? checkAmpersands(text.value(), path.string()) : Findings());
    append(findings, tryObjects(document));
    if (role == DocumentRole::main) {
        if (const Result<InterfaceScene> initial = document.initialScene(); !initial) {
            findings.push_back(
                findingOf("interface.refused", path.string(), initial.failure().place, initial.failure().what));
        }
    }
    return folded(findings);
}

} // namespace

Findings checkDocument(const fs::path& path) {
    return checkDocument(path, DocumentRole::other);
}

InterfaceFindings checkInterface(const NSBundle& bundle, const fs::path& mainStoryboard) {
    InterfaceFindings found;
    for (const fs::path& path : documentsOf(bundle)) {
        append(found.all, checkDocument(path, path == mainStoryboard ? DocumentRole::main : DocumentRole::other));
        ++found.files;
    }
    if (!mainStoryboard.empty()) {
        append(found.all, checkAskedResources(bundle, mainStoryboard));
    }
    append(found.all, checkCatalog(catalogFolder(bundle)));
    ++found.files;
    return found;
}
