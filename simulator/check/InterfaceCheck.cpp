#include "simulator/check/InterfaceCheck.h"

#include "platform/foundation/FileReading.h"
#include "platform/foundation/NSBundle.h"
#include "platform/graphics/PNG.h"
#include "platform/interface/AssetCatalogReader.h"
#include "platform/interface/CatalogSets.h"
#include "platform/interface/NibBuilder.h"
#include "platform/uikit/controllers/UIViewController.h"
#include "platform/uikit/view/UIView.h"
#include "simulator/check/DocumentCross.h"
#include "simulator/check/Rules.h"

#include <algorithm>
#include <array>

namespace {

std::vector<std::filesystem::path> documentsOf(const NSBundle& bundle) {
    std::vector<std::filesystem::path> paths;
    std::error_code error;
    const std::filesystem::directory_iterator end;
    for (std::filesystem::directory_iterator item(bundle.bundlePath(), error); !error && item != end;
         item.increment(error)) {
        const std::filesystem::path extension = item->path().extension();
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

/// Of the sets of that kind in the main bundle's catalogue.
std::vector<std::string> namesOf(const char* kind) {
    std::vector<std::string> names;
    for (const CatalogEntry& entry : catalogEntries(catalogFolder(NSBundle::mainBundle()))) {
        if (entry.folder.extension() == kind) {
            names.push_back(entry.name);
        }
    }
    return names;
}

/// Warns of images and colours that the elements of one document name and the catalogue lacks.
class NameCheck {
public:
    NameCheck(const InterfaceDocument& document, Findings& findings) : m_document(document), m_findings(findings) {}

    /// Of an element and all inside it.
    void check(const InterfaceElement& element) {
        if (element.name == "resources") {
            return; // lists what the other elements use
        }
        static constexpr std::array<std::string_view, 4> imageKeys = {"image", "highlightedImage", "selectedImage",
                                                                      "backgroundImage"};
        for (const std::string_view key : imageKeys) {
            checkImage(element, element.attribute(key));
        }
        if (element.name == "userDefinedRuntimeAttribute" && element.value("type") == "image") {
            checkImage(element, element.attribute("value"));
        }
        const std::string* name = element.attribute("name");
        if (element.name == "color" && name != nullptr && !UIColor::colorNamed(*name)) {
            warn(element, "interface.color",
                 "the catalogue has no colour \"" + *name + "\"" + suggestionInQuotes(*name, namesOf(".colorset")));
        }
        for (const InterfaceElement& child : element.children) {
            check(child);
        }
    }

private:
    void checkImage(const InterfaceElement& element, const std::string* name) {
        if (name != nullptr && element.value("catalog") != "system" && !UIImage::imageNamed(*name)) {
            warn(element, "interface.image",
                 "the catalogue has no image \"" + *name + "\"" + suggestionInQuotes(*name, namesOf(".imageset")));
        }
    }
    void warn(const InterfaceElement& element, std::string_view rule, const std::string& what) {
        m_findings.push_back(findingOf(rule, m_document.path(), element.place, element.failure(what).what));
    }

    const InterfaceDocument& m_document;
    Findings& m_findings;
};

/// What making all objects of a scene finds.
Findings findingsOf(const InterfaceScene& scene, const InterfaceDocument& document) {
    NibBuilder maker(document);
    Findings findings;
    const auto controller = maker.makeController(scene);
    append(findings, maker.findings());
    if (controller) {
        NibBuilder viewMaker(document);
        static_cast<void>(viewMaker.makeView(scene, controller));
        append(findings, viewMaker.findings());
    }
    return findings;
}

/// From the main document the host makes the extension's first controller.
enum class DocumentRole { main, other };

/// What the builder says is either refused by the phone, too, or has no effect here.
void nameBuilderRules(Findings& findings) {
    for (Finding& finding : findings) {
        if (finding.rule.empty()) {
            finding.rule = finding.severity == Severity::error ? "interface.refused" : "interface.ignored";
        }
    }
}

void checkDocument(const std::filesystem::path& path, DocumentRole role, Findings& findings) {
    const InterfaceDocument::Loaded loaded = InterfaceDocument::load(path);
    if (!loaded) {
        findings.push_back(
            findingOf("interface.unreadable", path.string(), loaded.failure().place, loaded.failure().what));
        return;
    }
    const InterfaceDocument& document = *loaded.value();
    append(findings, crossDocument(document));
    append(findings, checkTextColors(document));
    const Result<std::string> text = readWholeFile(path);
    append(findings, text ? checkMarkup(text.value(), path.string()) : Findings());
    for (const InterfaceScene& scene : document.scenes()) {
        append(findings, findingsOf(scene, document));
    }
    if (document.kind() == InterfaceDocument::Kind::nib) {
        NibBuilder maker(document);
        static_cast<void>(maker.makeNib(nullptr));
        append(findings, maker.findings());
    }
    if (role == DocumentRole::main) {
        if (const Result<InterfaceScene> initial = document.initialScene(); !initial) {
            findings.push_back(initial.failure().in(path.string()));
        }
    }
    std::erase_if(findings, [](const Finding& finding) { // crossDocument has told it, once
        return finding.what.find("another object has this id") != std::string::npos;
    });
    nameBuilderRules(findings);
    NameCheck(document, findings).check(document.root());
}

/// Why a picture cannot be drawn; empty for a sound one, and for a drawing, which nobody reads at run time.
std::string problemOfPNG(const std::filesystem::path& path) {
    if (path.extension() == ".svg") {
        return {};
    }
    const Result<Bitmap> picture = readPNG(path.string());
    return picture ? std::string() : picture.failure().what;
}

/// What is wrong with the file that an entry names and with those that were rendered from it.
std::vector<std::string> problemsOf(const std::filesystem::path& folder, std::string_view fileName) {
    std::vector<ImageFile> files = imageFilesOf(folder, fileName, 1);
    if (files.size() > 1) {
        files.push_back({(folder / fileName).string(), 1}); // the drawing itself
    }
    std::vector<std::string> problems;
    for (const ImageFile& file : files) {
        std::error_code error;
        if (!std::filesystem::is_regular_file(file.path, error)) {
            const bool isThere = std::filesystem::exists(file.path, error);
            problems.push_back("the file " + file.path + (isThere ? " is no regular file" : " is missing"));
        } else if (const std::string problem = problemOfPNG(file.path); !problem.empty()) {
            problems.push_back("the file " + file.path + " cannot be drawn: " + problem);
        }
    }
    return problems;
}

void checkScale(const CatalogContents& contents, JSONValue entry, Findings& findings) {
    const auto scale = entry.find("scale");
    const std::string_view written = textAt(entry, "scale");
    if (scale && written != "1x" && written != "2x" && written != "3x") {
        Finding finding = contents.finding(*scale, "the scale \"" + std::string(written) + "\" is none of 1x, 2x, 3x");
        finding.rule = "catalog.scale";
        findings.push_back(std::move(finding));
    }
}

/// Warns, once for a set, of files that it names and that are missing or cannot be drawn.
void checkImageFiles(const std::filesystem::path& folder, Findings& findings) {
    Findings told; // by readImageSet
    const std::optional<CatalogContents> contents = CatalogContents::read(folder, told);
    const auto images = contents ? contents->root().find("images") : std::nullopt;
    if (!images) {
        return;
    }
    std::optional<Finding> first;
    std::size_t others = 0;
    for (const JSONValue entry : images->elements()) {
        checkScale(*contents, entry, findings);
        const auto name = entry.find("filename"); // none in an empty slot
        for (const std::string& problem :
             name ? problemsOf(folder, textAt(entry, "filename")) : std::vector<std::string>()) {
            others += first ? 1 : 0;
            first = first ? first : contents->finding(*name, problem);
        }
    }
    if (first) {
        first->what += others > 0 ? ", and " + std::to_string(others) + " more of this set" : "";
        first->rule = "catalog.file";
        findings.push_back(*std::move(first));
    }
}

} // namespace

Findings checkCatalog(const std::filesystem::path& catalog) {
    Findings findings;
    for (const CatalogEntry& entry : catalogEntries(catalog, &findings)) {
        if (entry.folder.extension() == ".colorset") {
            static_cast<void>(readColorSet(entry.folder, findings));
        } else if (entry.folder.extension() == ".imageset") {
            static_cast<void>(readImageSet(entry.folder, findings));
            checkImageFiles(entry.folder, findings);
        }
    }
    nameRule(findings, "catalog.set");
    return findings;
}

Findings checkDocument(const std::filesystem::path& path) {
    Findings findings;
    checkDocument(path, DocumentRole::other, findings);
    return findings;
}

InterfaceFindings checkInterface(const NSBundle& bundle, const std::filesystem::path& mainStoryboard) {
    InterfaceFindings found;
    for (const std::filesystem::path& path : documentsOf(bundle)) {
        checkDocument(path, path == mainStoryboard ? DocumentRole::main : DocumentRole::other, found.all);
        ++found.files;
    }
    if (!mainStoryboard.empty()) {
        append(found.all, checkAskedResources(bundle, mainStoryboard));
    }
    append(found.all, checkCatalog(catalogFolder(bundle)));
    ++found.files;
    return found;
}
