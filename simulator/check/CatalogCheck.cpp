#include "simulator/check/CatalogCheck.h"

#include "platform/foundation/FileReading.h"
#include "platform/foundation/NSBundle.h"
#include "platform/foundation/TextPlaces.h"
#include "platform/graphics/PNG.h"
#include "platform/interface/AssetCatalogReader.h"
#include "platform/interface/CatalogSets.h"
#include "simulator/check/Rules.h"
#include "simulator/check/TolerantJSON.h"

#include <algorithm>

namespace {

namespace fs = std::filesystem;

/// All keys that sets are written with, wherever they stand.
const std::vector<std::string> knownKeys{"images",
                                         "colors",
                                         "info",
                                         "properties",
                                         "author",
                                         "version",
                                         "idiom",
                                         "filename",
                                         "scale",
                                         "color",
                                         "components",
                                         "red",
                                         "green",
                                         "blue",
                                         "alpha",
                                         "white",
                                         "platform",
                                         "reference",
                                         "value",
                                         "appearance",
                                         "appearances",
                                         "display-gamut",
                                         "subtype",
                                         "resizing",
                                         "mode",
                                         "center",
                                         "cap-insets",
                                         "left",
                                         "right",
                                         "top",
                                         "bottom",
                                         "width",
                                         "height",
                                         "size",
                                         "role",
                                         "color-space",
                                         "memory",
                                         "unassigned",
                                         "locale",
                                         "localizable",
                                         "language-direction",
                                         "template-rendering-intent",
                                         "preserves-vector-representation",
                                         "compression-type"};

std::vector<JSONValue> listAt(JSONValue object, std::string_view key) {
    const auto list = object.find(key);
    return list ? list->elements() : std::vector<JSONValue>();
}

/// What is no JSON, in plain words.
void checkJSON(const fs::path& file, Findings& findings) {
    const Result<std::string> text = readWholeFile(file);
    if (!text) {
        return; // that is told when the set is read
    }
    Slips slips;
    static_cast<void>(readTolerantly(text.value(), slips));
    for (Finding& slip : slips.findings(TextPlaces(text.value()), file.string())) {
        findings.push_back(findingOf("catalog.set", slip.path, slip.place, std::move(slip.what)));
    }
}

/// Keys that are nearly others; the unknown ones are of editors newer than this.
void checkKeys(const CatalogContents& contents, JSONValue value, Findings& findings) {
    for (const JSONValue::Member& member : value.members()) {
        const std::string key(member.key);
        if (std::find(knownKeys.begin(), knownKeys.end(), key) == knownKeys.end()) {
            if (const std::string meant = suggestionInQuotes(key, knownKeys); !meant.empty()) {
                findings.push_back(contents.findingOfKey(member, "\"" + key + "\" is no key of a set" + meant));
            }
        }
        checkKeys(contents, member.value, findings);
    }
    for (const JSONValue element : value.elements()) {
        checkKeys(contents, element, findings);
    }
}

/// Why a picture cannot be drawn; empty for a sound one. Drawings are rendered when the bundle is assembled.
std::string problemOfPicture(const fs::path& path) {
    if (path.extension() == ".svg") {
        const Result<std::string> text = readWholeFile(path);
        return text && text.value().find("<svg") == std::string::npos ? "it holds no <svg>" : "";
    }
    const Result<Bitmap> picture = readPNG(path.string());
    return picture ? "" : picture.failure().what;
}

/// What is wrong with the file that an entry names and with those that were rendered from it.
std::vector<std::string> problemsOf(const fs::path& folder, std::string_view fileName) {
    std::vector<ImageFile> files = imageFilesOf(folder, fileName, 1);
    if (files.size() > 1) {
        files.push_back({(folder / fileName).string(), 1}); // the drawing itself
    }
    std::vector<std::string> problems;
    for (const ImageFile& file : files) {
        std::error_code error;
        if (!fs::is_regular_file(file.path, error)) {
            const bool isThere = fs::exists(file.path, error);
            problems.push_back("the file " + file.path + (isThere ? " is no regular file" : " is missing"));
        } else if (const std::string problem = problemOfPicture(file.path); !problem.empty()) {
            problems.push_back("the file " + file.path + " cannot be drawn: " + problem);
        }
    }
    return problems;
}

void tell(Findings& findings, Finding finding, std::string_view rule) {
    finding.rule = rule;
    findings.push_back(std::move(finding));
}

void checkScale(const CatalogContents& contents, JSONValue entry, Findings& findings) {
    const auto scale = entry.find("scale");
    const std::string_view written = textAt(entry, "scale");
    if (scale && written != "1x" && written != "2x" && written != "3x") {
        tell(findings, contents.finding(*scale, "the scale \"" + std::string(written) + "\" is none of 1x, 2x, 3x"),
             "catalog.scale");
    }
}

/// Warns, once for a set, of files that it names and that are missing or cannot be drawn.
void checkImageFiles(const CatalogContents& contents, const fs::path& folder, Findings& findings) {
    std::optional<Finding> first;
    std::size_t others = 0;
    for (const JSONValue entry : listAt(contents.root(), "images")) {
        checkScale(contents, entry, findings);
        const auto name = entry.find("filename"); // none in an empty slot
        for (const std::string& problem :
             name ? problemsOf(folder, textAt(entry, "filename")) : std::vector<std::string>()) {
            others += first ? 1 : 0;
            first = first ? first : contents.finding(*name, problem);
        }
    }
    if (first) {
        first->what += others > 0 ? ", and " + std::to_string(others) + " more of this set" : "";
        tell(findings, *std::move(first), "catalog.file");
    }
}

/// One mistake makes others: what the set lacks is told when all that it holds is written well.
void checkSet(const fs::path& folder, Findings& findings) {
    Findings found;
    checkJSON(folder / "Contents.json", found);
    const auto contents = found.empty() ? CatalogContents::read(folder, found) : std::nullopt;
    if (contents) {
        checkKeys(*contents, contents->root(), found);
    }
    if (contents && found.empty()) {
        if (folder.extension() == ".colorset") {
            static_cast<void>(readColorSet(folder, found));
        } else if (!readImageSet(folder, found) && found.empty()) {
            tell(found, contents->finding(contents->root(), "the set has no file for this phone"), "catalog.file");
        } else {
            checkImageFiles(*contents, folder, found);
        }
    }
    findings.insert(findings.end(), found.begin(), found.end());
}

} // namespace

Findings checkCatalog(const fs::path& catalog) {
    Findings findings;
    std::error_code error;
    if (!fs::is_directory(catalog, error)) {
        findings.push_back(findingOf("catalog.set", catalog.string(), std::nullopt,
                                     "there is no catalogue, so that no image and no named colour is shown"));
    }
    for (const CatalogEntry& entry : catalogEntries(catalog, &findings)) {
        if (entry.folder.extension() == ".colorset" || entry.folder.extension() == ".imageset") {
            checkSet(entry.folder, findings);
        }
    }
    nameRule(findings, "catalog.set");
    return findings;
}

bool hasCatalog() {
    std::error_code error;
    return fs::is_directory(catalogFolder(NSBundle::mainBundle()), error);
}

std::vector<std::string> setsOfCatalog(std::string_view extension) {
    std::vector<std::string> names;
    for (const CatalogEntry& entry : catalogEntries(catalogFolder(NSBundle::mainBundle()))) {
        if (entry.folder.extension() == extension) {
            names.push_back(entry.name);
        }
    }
    return names;
}

std::vector<std::string> iconNames() {
    std::vector<std::string> names = setsOfCatalog(".imageset");
    std::erase_if(names, [](const std::string& name) { return !name.starts_with("icon_"); });
    std::sort(names.begin(), names.end());
    return names;
}

bool followsDark(std::string_view name) {
    for (const CatalogEntry& entry : catalogEntries(catalogFolder(NSBundle::mainBundle()))) {
        if (entry.name != name || entry.folder.extension() != ".colorset") {
            continue;
        }
        Findings told;
        const std::optional<CatalogContents> contents = CatalogContents::read(entry.folder, told);
        bool isDark = !contents;
        for (const JSONValue color : contents ? listAt(contents->root(), "colors") : std::vector<JSONValue>()) {
            for (const JSONValue appearance : listAt(color, "appearances")) {
                isDark = isDark || textAt(appearance, "value") == "dark";
            }
        }
        return isDark;
    }
    return true;
}
