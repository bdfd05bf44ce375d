#include "platform/foundation/FileReading.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <new>
#include <sys/stat.h>
#include <unistd.h>

namespace {

Failure failure(const std::filesystem::path& path, const std::string& reason) {
    return {"The file “" + path.filename().string() + "” couldn’t be opened: " + reason};
}

/// Asking for more would not fail: the system would end the program once the bytes arrive.
std::size_t largestSize() {
    static const long pages = sysconf(_SC_PHYS_PAGES);
    static const long pageSize = sysconf(_SC_PAGESIZE);
    return static_cast<std::size_t>(pages) / 2 * static_cast<std::size_t>(pageSize);
}

class OpenFile {
public:
    /// A pipe would otherwise wait for its other end.
    explicit OpenFile(const char* path) : m_number(open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {}
    ~OpenFile() {
        if (m_number >= 0) {
            close(m_number);
        }
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    /// Empty, or why it is not.
    std::string readTo(std::string& text) const {
        struct stat status {};
        if (m_number < 0 || fstat(m_number, &status) != 0) {
            return std::strerror(errno);
        }
        if (!S_ISREG(status.st_mode)) {
            return S_ISDIR(status.st_mode) ? "it is a folder" : "it is not a regular file";
        }
        const auto size = static_cast<std::size_t>(status.st_size);
        if (size > largestSize()) {
            return std::strerror(EFBIG);
        }
        return readToEnd(size, text) ? std::string() : std::strerror(errno);
    }

private:
    /// Wherever the end is by now.
    bool readToEnd(std::size_t expected, std::string& text) const {
        std::size_t size = 0;
        std::size_t room = expected + 1; // more, so that one read meets the end
        for (;;) {
            text.resize(size + room);
            const ssize_t count = read(m_number, text.data() + size, room);
            if (count < 0) {
                return false;
            }
            const auto added = static_cast<std::size_t>(count);
            size += added;
            if (added == 0 || (size == expected && added < room)) {
                text.resize(size);
                return true;
            }
            room = std::max<std::size_t>(size, 4096);
        }
    }

    int m_number; // below 0: it could not be opened
};

} // namespace

std::optional<Failure> readWholeFile(const std::filesystem::path& path, std::string& text) {
    std::string reason;
    try {
        reason = OpenFile(path.c_str()).readTo(text);
    } catch (const std::bad_alloc&) {
        reason = std::strerror(ENOMEM);
    }
    return reason.empty() ? std::nullopt : std::optional(failure(path, reason));
}

Result<std::string> readWholeFile(const std::filesystem::path& path) {
    std::string text;
    if (const std::optional<Failure> failure = readWholeFile(path, text)) {
        return *failure;
    }
    return text;
}
