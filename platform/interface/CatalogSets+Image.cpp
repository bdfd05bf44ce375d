#include "platform/graphics/PNG.h"
#include "platform/interface/CatalogContents.h"
#include "platform/interface/CatalogSets.h"

namespace {

struct NamedFile {
    std::string_view name;
    int scale = 1;
    bool forPhone = false;
};

int scaleOf(JSONValue entry) {
    const std::string_view scale = textAt(entry, "scale");
    return scale == "3x" ? 3 : scale == "2x" ? 2 : 1;
}

/// The entries that name a file for this device, whatever the appearance; slots may be empty.
std::vector<NamedFile> namedFiles(JSONValue images) {
    std::vector<NamedFile> files;
    bool anyForPhone = false;
    for (const JSONValue entry : images.elements()) {
        const std::string_view idiom = textAt(entry, "idiom");
        const std::string_view name = textAt(entry, "filename");
        const bool forPhone = idiom == "iphone";
        if (!name.empty() && !entry.find("appearances") && (forPhone || idiom == "universal")) {
            files.push_back({name, scaleOf(entry), forPhone});
            anyForPhone = anyForPhone || forPhone;
        }
    }
    std::vector<NamedFile> chosen;
    for (const NamedFile& file : files) {
        if (file.forPhone == anyForPhone) {
            chosen.push_back(file);
        }
    }
    return chosen;
}

void addFile(const std::filesystem::path& folder, const NamedFile& file,
             std::vector<UIImageRepresentation>& representations) {
    const std::filesystem::path path = folder / std::filesystem::path(file.name).filename();
    if (path.extension() != ".svg") {
        representations.push_back({path.string(), file.scale});
        return;
    }
    const std::string stem = (folder / path.stem()).string();
    representations.push_back({stem + ".png", 1});
    representations.push_back({stem + "@2x.png", 2});
    representations.push_back({stem + "@3x.png", 3});
}

/// Why a picture cannot be drawn; empty for a sound one, and for a drawing, which nobody reads at run time.
std::string problemOfPNG(const std::filesystem::path& path) {
    return path.extension() == ".svg" ? std::string() : readPNG(path.string()).error;
}

using Texts = std::vector<std::string>;

/// What is wrong with the file that an entry names and with those that were rendered from it.
Texts problemsOf(const std::filesystem::path& folder, std::string_view fileName) {
    std::vector<UIImageRepresentation> files;
    addFile(folder, {fileName, 1, false}, files);
    if (files.size() > 1) {
        files.push_back({(folder / fileName).string(), 1}); // the drawing itself
    }
    Texts problems;
    for (const UIImageRepresentation& file : files) {
        std::error_code error;
        if (!std::filesystem::is_regular_file(file.path, error)) {
            problems.push_back("the file " + file.path + " is missing");
        } else if (const std::string problem = problemOfPNG(file.path); !problem.empty()) {
            problems.push_back("the file " + file.path + " cannot be drawn: " + problem);
        }
    }
    return problems;
}

UIImageRenderingMode renderingModeOf(JSONValue root) {
    const auto properties = root.find("properties");
    const std::string_view intent = properties ? textAt(*properties, "template-rendering-intent") : "";
    return intent == "template"   ? UIImageRenderingMode::alwaysTemplate
           : intent == "original" ? UIImageRenderingMode::alwaysOriginal
                                  : UIImageRenderingMode::automatic;
}

} // namespace

std::shared_ptr<UIImage> readImageSet(const std::filesystem::path& folder, const std::string& name,
                                      Findings& findings) {
    const std::optional<CatalogContents> contents = CatalogContents::read(folder, findings);
    if (!contents) {
        return nullptr;
    }
    const auto images = contents->root().find("images");
    if (!images || !images->is(JSONKind::array)) {
        findings.push_back(contents->finding(contents->root(), "the list \"images\" is missing"));
        return nullptr;
    }
    std::vector<UIImageRepresentation> representations;
    for (const NamedFile& file : namedFiles(*images)) {
        addFile(folder, file, representations);
    }
    if (representations.empty()) {
        return nullptr;
    }
    return std::make_shared<UIImage>(name, std::move(representations), renderingModeOf(contents->root()));
}

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
        const auto name = entry.find("filename"); // none in an empty slot
        for (const std::string& problem : name ? problemsOf(folder, textAt(entry, "filename")) : Texts()) {
            others += first ? 1 : 0;
            first = first ? first : contents->finding(*name, problem);
        }
    }
    if (first) {
        first->what += others > 0 ? ", and " + std::to_string(others) + " more of this set" : "";
        findings.push_back(*std::move(first));
    }
}
