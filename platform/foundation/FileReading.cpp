#include "platform/foundation/FileReading.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <fcntl.h>
#include <new>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// An open file that closes itself.
class File {
public:
    explicit File(const std::filesystem::path& path)
        : m_descriptor(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {} // a pipe must not block the open
    ~File() {
        if (m_descriptor >= 0) {
            close(m_descriptor);
        }
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    [[nodiscard]] int descriptor() const { return m_descriptor; }

private:
    int m_descriptor;
};

Failure failure(const std::filesystem::path& path, const char* reason) {
    return {"The file “" + path.filename().string() + "” couldn’t be opened: " + reason};
}

/// Asking for more would not fail: the system would end the program once the bytes arrive.
std::size_t largestSize() {
    static const long pages = sysconf(_SC_PHYS_PAGES);
    static const long pageSize = sysconf(_SC_PAGESIZE);
    return static_cast<std::size_t>(pages) / 2 * static_cast<std::size_t>(pageSize);
}

/// Reads to the end, wherever that is by now, in pieces of at least `expected` bytes; false with errno set when the
/// file cannot be read.
bool readToEnd(int descriptor, std::size_t expected, std::string& text) {
    std::size_t size = 0;
    while (true) {
        if (size == text.size()) {
            const std::size_t larger = std::max(expected, size + size / 2);
            if (larger > largestSize()) {
                errno = EFBIG;
                return false;
            }
            text.resize(larger);
        }
        const ssize_t count = read(descriptor, text.data() + size, text.size() - size);
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            text.resize(size);
            return count == 0;
        }
        size += static_cast<std::size_t>(count);
    }
}

} // namespace

Result<std::string> readWholeFile(const std::filesystem::path& path) {
    const File file(path);
    struct stat status {};
    if (file.descriptor() < 0 || fstat(file.descriptor(), &status) != 0) {
        return failure(path, std::strerror(errno));
    }
    if (S_ISDIR(status.st_mode)) {
        return failure(path, "it is a folder");
    }
    if (!S_ISREG(status.st_mode)) {
        return failure(path, "it is not a regular file");
    }
    try {
        std::string text;
        const auto expected = static_cast<std::size_t>(status.st_size) + 4096; // more, so that one read meets the end
        return readToEnd(file.descriptor(), expected, text) ? Result(std::move(text))
                                                            : failure(path, std::strerror(errno));
    } catch (const std::bad_alloc&) {
        return failure(path, std::strerror(ENOMEM));
    }
}
