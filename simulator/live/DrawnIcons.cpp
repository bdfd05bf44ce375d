#include "simulator/live/DrawnIcons.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

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
    const fs::path fresh = picture.string() + ".new";
    std::error_code error;
    fs::create_directories(picture.parent_path(), error);
    if (!runProgram({"rsvg-convert", "--zoom", std::to_string(zoom), "--output", fresh.string(), drawing.string()})) {
        fs::remove(fresh, error);
        return false;
    }
    fs::rename(fresh, picture, error);
    return !error;
}

/// The earliest of all times when there is no such file.
fs::file_time_type savedAt(const fs::path& file) {
    std::error_code error;
    return fs::last_write_time(file, error);
}

} // namespace

Findings renderDrawings(const fs::path& catalogue, const fs::path& rendered, fs::file_time_type savedAfter) {
    Findings problems;
    std::error_code error;
    for (auto at = fs::recursive_directory_iterator(catalogue, error); !error && at != fs::end(at);
         at.increment(error)) {
        const fs::path drawing = at->path();
        if (drawing.extension() != ".svg" || savedAt(drawing) <= savedAfter) {
            continue;
        }
        const fs::path stem = rendered / drawing.lexically_relative(catalogue).replace_extension();
        bool isDrawn = true;
        for (int zoom = 1; isDrawn && zoom <= 3; ++zoom) {
            const fs::path picture = stem.string() + (zoom == 1 ? ".png" : "@" + std::to_string(zoom) + "x.png");
            isDrawn = savedAt(drawing) <= savedAt(picture) || render(drawing, picture, zoom);
        }
        if (!isDrawn) {
            problems.push_back({Severity::error, drawing.string(), std::nullopt,
                                "rsvg-convert (librsvg2-bin) cannot draw it; the picture before it stays"});
        }
    }
    return problems;
}
