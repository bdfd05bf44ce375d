#include "simulator/pictures/GalleryFolder.h"

#include "platform/foundation/FileReading.h"
#include "simulator/pictures/GalleryPage.h"
#include "simulator/pictures/PictureFile.h"

#include <cctype>
#include <cerrno>
#include <cstring>
#include <unistd.h>

namespace {

constexpr const char* pageName = "index.html";

} // namespace

GalleryFolder::GalleryFolder(std::filesystem::path folder, Overwriting overwriting)
    : m_folder(std::move(folder)), m_overwriting(overwriting) {
    const Result<std::string> page = readWholeFile(m_folder / pageName);
    if (!page || page.value().find(galleryMark) == std::string::npos) {
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

std::optional<Failure> GalleryFolder::claim(const std::vector<std::string>& names) {
    std::error_code error;
    std::filesystem::create_directories(m_folder, error);
    if (error || access(m_folder.c_str(), W_OK | X_OK) != 0) {
        const std::string reason = error ? error.message() : std::strerror(errno);
        return Failure{"cannot write into " + m_folder.string() + ": " + reason};
    }
    m_claimed.insert(names.begin(), names.end());
    m_claimed.insert(pageName);
    for (const std::string& name : m_claimed) {
        if (std::optional<Failure> failure = refusal(name)) {
            return failure;
        }
        if (!std::filesystem::exists(m_folder / name, error)) {
            m_added.insert(name);
        }
    }
    return std::nullopt;
}

std::optional<Failure> GalleryFolder::refusal(const std::string& name) const {
    std::error_code error;
    const bool isFree = m_earlier.contains(name) || !std::filesystem::exists(m_folder / name, error);
    if (isFree || m_overwriting == Overwriting::everything) {
        return std::nullopt;
    }
    return Failure{(m_folder / name).string() + " is not of an earlier gallery; --force overwrites it"};
}

void GalleryFolder::withdraw() const {
    for (const std::string& name : m_added) {
        std::error_code error; // one that stays does no harm
        std::filesystem::remove(m_folder / name, error);
    }
}

std::optional<Failure> GalleryFolder::savePage(const std::string& html) const {
    if (std::optional<Failure> failure = writeWholeFile(html, m_folder / pageName)) {
        return failure;
    }
    for (const std::string& name : m_earlier) {
        const bool isOurs = name.ends_with(".png") && std::filesystem::path(name).filename() == name;
        if (isOurs && !m_claimed.contains(name)) {
            std::error_code error; // one that stays does no harm
            std::filesystem::remove(m_folder / name, error);
        }
    }
    return std::nullopt;
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
