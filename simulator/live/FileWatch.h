#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <vector>

/// Notices when files change, appear or go. Looks at them when it is asked, not more often than the pause allows: that
/// works on every kind of disk, and costs nothing worth counting for a bundle's few files.
class FileWatch {
public:
    static constexpr std::chrono::milliseconds pause{200};

    /// Files, and folders with all that is in them.
    explicit FileWatch(std::vector<std::filesystem::path> watched);

    /// Whether something has changed since the last time that was answered with true.
    [[nodiscard]] bool hasChanged();
    /// Reads the files once more when they were saved meanwhile, which is then no change any longer. An editor that
    /// never rests is left alone after some rounds.
    void takeIn(const std::function<void()>& read);

private:
    [[nodiscard]] std::uint64_t look() const;

    std::vector<std::filesystem::path> m_watched;
    std::uint64_t m_seen;
    std::chrono::steady_clock::time_point m_next;
};
