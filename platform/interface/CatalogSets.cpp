#include "platform/interface/CatalogSets.h"

#include "platform/foundation/FileReading.h"

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
    std::erase_if(files, [&](const NamedFile& file) { return file.forPhone != anyForPhone; });
    return files;
}

} // namespace

std::optional<CatalogContents> CatalogContents::read(const std::filesystem::path& folder, Findings& findings) {
    const std::string path = (folder / "Contents.json").string();
    Result<std::string> text = readWholeFile(path);
    if (!text) {
        findings.push_back(text.failure().in(path, Severity::warning));
        return std::nullopt;
    }
    Result<JSONDocument> document = JSONDocument::parse(std::move(text).value());
    if (!document) {
        findings.push_back(document.failure().in(path, Severity::warning));
        return std::nullopt;
    }
    if (!document.value().root().is(JSONKind::object)) {
        findings.push_back({Severity::warning, path, TextPlace{}, "an object is expected"});
        return std::nullopt;
    }
    return CatalogContents(path, std::move(document).value());
}

Finding CatalogContents::finding(JSONValue at, const std::string& message) const {
    return {Severity::warning, m_path, m_document.placeOf(at), message};
}

std::string_view textAt(JSONValue value, std::string_view key) {
    const auto found = value.find(key);
    return found ? found->string().value_or(std::string_view()) : std::string_view();
}

std::vector<ImageFile> imageFilesOf(const std::filesystem::path& folder, std::string_view fileName, int scale) {
    const std::filesystem::path path = folder / std::filesystem::path(fileName).filename();
    if (path.extension() != ".svg") {
        return {{path.string(), scale}};
    }
    const std::string stem = (folder / path.stem()).string();
    return {{stem + ".png", 1}, {stem + "@2x.png", 2}, {stem + "@3x.png", 3}};
}

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
    std::vector<ImageFile> all;
    for (const NamedFile& file : namedFiles(*images)) {
        for (ImageFile& drawn : imageFilesOf(folder, file.name, file.scale)) {
            all.push_back(std::move(drawn));
        }
    }
    if (all.empty()) {
        return nullptr;
    }
    return std::make_shared<UIImage>(name, std::move(all));
}
