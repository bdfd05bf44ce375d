#include "simulator/live/FileWatch.h"

#include <sys/stat.h>

#include <functional>
#include <string>
#include <utility>

namespace fs = std::filesystem;

namespace {

/// Asks the disk once.
std::uint64_t fingerprintOf(const fs::path& file) {
    struct stat status {};
    if (stat(file.c_str(), &status) != 0) {
        return 0;
    }
    const timespec& time = status.st_mtim;
    const std::string text = file.string() + '\n' + std::to_string(time.tv_sec) + '\n' + std::to_string(time.tv_nsec) +
                             '\n' + std::to_string(status.st_size);
    return std::hash<std::string>()(text);
}

} // namespace

FileWatch::FileWatch(std::vector<fs::path> watched) : m_watched(std::move(watched)), m_seen(look()) {}

/// A sum, for a folder names its files in any order.
std::uint64_t FileWatch::look() const {
    std::uint64_t sum = 0;
    for (const fs::path& path : m_watched) {
        sum += fingerprintOf(path);
        std::error_code error;
        for (auto file = fs::recursive_directory_iterator(path, error); !error && file != fs::end(file);
             file.increment(error)) {
            sum += fingerprintOf(file->path());
        }
    }
    return sum;
}

bool FileWatch::hasChanged() {
    const auto now = std::chrono::steady_clock::now();
    if (now < m_next) {
        return false;
    }
    m_next = now + pause;
    const std::uint64_t seen = look();
    return std::exchange(m_seen, seen) != seen;
}

void FileWatch::takeIn(const std::function<void()>& read) {
    constexpr int mostRounds = 5;
    bool isTakenIn = false;
    for (int round = 0; !isTakenIn && round < mostRounds; ++round) {
        m_seen = look();
        read();
        isTakenIn = look() == m_seen;
    }
}
