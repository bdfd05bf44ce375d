#include "simulator/live/BundleSources.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <vector>

namespace fs = std::filesystem;

namespace {

/// The pictures of a drawing: beside it, at 1x, 2x and 3x.
fs::path pictureOf(fs::path drawing, int zoom) {
    const std::string suffix = zoom == 1 ? ".png" : "@" + std::to_string(zoom) + "x.png";
    return drawing.replace_filename(drawing.stem().string() + suffix);
}

/// Waits for it; false when it failed or is not installed.
bool runProgram(std::vector<std::string> words) {
    std::vector<char*> arguments;
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    pid_t process = 0;
    int status = 1;
    return posix_spawnp(&process, arguments[0], nullptr, nullptr, arguments.data(), environ) == 0 &&
           waitpid(process, &status, 0) == process && status == 0;
}

/// The old picture stays when the new one cannot be made.
bool render(const fs::path& drawing, const fs::path& picture, int zoom) {
    fs::path fresh = picture;
    fresh += ".new";
    std::error_code error;
    if (!runProgram({"rsvg-convert", "--zoom", std::to_string(zoom), "--output", fresh.string(), drawing.string()})) {
        fs::remove(fresh, error);
        return false;
    }
    fs::rename(fresh, picture, error);
    return !error;
}

bool isNewer(const fs::path& source, const fs::path& copy) {
    std::error_code error;
    const auto taken = fs::last_write_time(copy, error);
    return error || fs::last_write_time(source, error) > taken;
}

Finding problem(const fs::path& file, const std::string& what) {
    return {Severity::error, file.string(), std::nullopt, what};
}

} // namespace

BundleSources::BundleSources(fs::path folder, fs::path bundle)
    : m_folder(std::move(folder)), m_bundle(std::move(bundle)), m_taken(places()) {}

BundleSources::Places BundleSources::places() const {
    Places places;
    std::error_code error;
    for (auto at = fs::recursive_directory_iterator(m_folder, error); !error && at != fs::end(at);
         at.increment(error)) {
        const fs::path file = at->path();
        const fs::path inside = file.lexically_relative(m_folder);
        const std::string kind = file.extension().string();
        const bool isCatalogue = *inside.begin() == "Assets.xcassets";
        const bool isContent = kind == ".json" && inside.parent_path() == "content";
        const bool isData =
            !inside.has_parent_path() && (kind == ".storyboard" || kind == ".xib" || inside == "Info.plist");
        if (isData || isContent) {
            places[m_bundle / file.filename()] = file;
        } else if (isCatalogue && (file.filename() == "Contents.json" || kind == ".svg" || kind == ".png")) {
            places[m_bundle / inside] = file;
        }
    }
    return places;
}

Findings BundleSources::takeOver() {
    const Places now = places();
    for (const auto& [place, source] : m_taken) {
        if (now.count(place) == 0) {
            drop(place);
        }
    }
    Findings problems;
    for (const auto& [place, source] : now) {
        if (std::optional<Finding> found = takeOver(source, place)) {
            problems.push_back(*std::move(found));
        }
    }
    m_taken = now;
    return problems;
}

void BundleSources::drop(const fs::path& place) {
    std::error_code error;
    fs::remove(place, error);
    for (int zoom = 1; place.extension() == ".svg" && zoom <= 3; ++zoom) {
        fs::remove(pictureOf(place, zoom), error);
    }
}

std::optional<Finding> BundleSources::takeOver(const fs::path& source, const fs::path& place) {
    std::error_code error;
    if (isNewer(source, place)) {
        fs::create_directories(place.parent_path(), error);
        fs::copy_file(source, place, fs::copy_options::overwrite_existing, error);
        if (error) {
            return problem(source, "cannot be taken into the bundle: " + error.message());
        }
    }
    for (int zoom = 1; source.extension() == ".svg" && zoom <= 3; ++zoom) {
        const fs::path picture = pictureOf(place, zoom);
        if (isNewer(source, picture) && !render(source, picture, zoom)) {
            return problem(source, "rsvg-convert (librsvg2-bin) cannot draw it; the picture before it stays");
        }
    }
    return std::nullopt;
}

fs::path BundleSources::sourceOf(const fs::path& file) const {
    const auto found = m_taken.find(file);
    return found == m_taken.end() ? file : found->second;
}
