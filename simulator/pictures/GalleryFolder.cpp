#include "simulator/pictures/GalleryFolder.h"

#include "platform/foundation/FileReading.h"
#include "simulator/pictures/PictureComparison.h"

#include <cctype>
#include <fstream>

namespace {

constexpr const char* pageName = "index.html";
constexpr const char* generator = R"(<meta name="generator" content="parlor gallery">)";

constexpr const char* head = R"(
<style>
body { font: 15px/1.4 system-ui, sans-serif; margin: 24px; background: #e5e5ea; color: #333; }
main { display: flex; flex-wrap: wrap; gap: 24px; }
figure { margin: 0; width: 260px; }
figcaption { margin-bottom: 8px; }
img { width: 100%; display: block; border-radius: 12px; }
</style>
<h1>Truths &amp; Dares</h1>
<p><a href="gallery.png">All on one sheet</a></p>
<main>
)";

} // namespace

GalleryFolder::GalleryFolder(std::filesystem::path folder, Overwriting overwriting)
    : m_folder(std::move(folder)), m_overwriting(overwriting) {
    const Result<std::string> page = readWholeFile(m_folder / pageName);
    if (!page || page.value().find(generator) == std::string::npos) {
        return;
    }
    m_earlier.insert(pageName);
    const std::string mark = "href=\"";
    const std::string& text = page.value();
    for (std::size_t at = text.find(mark); at != std::string::npos; at = text.find(mark, at)) {
        at += mark.size();
        m_earlier.insert(text.substr(at, text.find('"', at) - at));
    }
}

std::optional<Failure> GalleryFolder::refusal(const std::string& name) const {
    std::error_code error;
    const bool isFree = m_earlier.contains(name) || !std::filesystem::exists(m_folder / name, error);
    if (isFree || m_overwriting == Overwriting::everything) {
        return std::nullopt;
    }
    return Failure{(m_folder / name).string() + " is not of an earlier gallery; --force overwrites it"};
}

std::optional<Failure> GalleryFolder::save(const Bitmap& picture, const std::string& name) {
    std::optional<Failure> failure = refusal(name);
    m_written.insert(name);
    return failure ? failure : savePicture(picture, m_folder / name);
}

std::optional<Failure> GalleryFolder::savePage() {
    if (std::optional<Failure> failure = refusal(pageName)) {
        return failure;
    }
    const std::filesystem::path path = m_folder / pageName;
    std::ofstream page(path, std::ios::binary);
    page << "<!DOCTYPE html>\n<html lang=\"en\">\n<meta charset=\"utf-8\">\n"
         << generator << "\n<title>Truths &amp; Dares</title>" << head;
    for (const Shown& shown : m_shown) {
        page << "<figure><figcaption>" << shown.caption << "</figcaption><a href=\"" << shown.name << "\"><img src=\""
             << shown.name << "\" alt=\"" << shown.caption << "\" loading=\"lazy\"></a></figure>\n";
    }
    page << "</main>\n</html>\n";
    page.close();
    if (!page) {
        return Failure{"cannot write " + path.string()};
    }
    removeEarlierPictures();
    return std::nullopt;
}

void GalleryFolder::removeEarlierPictures() const {
    for (const std::string& name : m_earlier) {
        const bool isOurs = name.ends_with(".png") && std::filesystem::path(name).filename() == name;
        if (isOurs && !m_written.contains(name)) {
            std::error_code error; // one that stays does no harm
            std::filesystem::remove(m_folder / name, error);
        }
    }
}

std::string fileNameOf(const std::string& text) {
    std::string name;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (std::isalnum(byte) != 0) {
            name += static_cast<char>(std::tolower(byte));
        } else if (!name.empty() && name.back() != '-') {
            name += '-';
        }
    }
    if (name.ends_with('-')) {
        name.pop_back();
    }
    return name;
}
