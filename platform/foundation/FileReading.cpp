#include "platform/foundation/FileReading.h"

#include <cerrno>
#include <cstddef>
#include <cstring>
#include <fcntl.h>
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

/// Reads to the end, wherever that is by now; false with errno set when the file cannot be read.
bool readToEnd(int descriptor, std::string& text) {
    std::size_t size = 0;
    while (true) {
        if (size == text.size()) {
            text.resize(size + size / 2 + 4096);
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
    std::string text(static_cast<std::size_t>(status.st_size) + 1, '\0'); // one more, so that one read meets the end
    if (!readToEnd(file.descriptor(), text)) {
        return failure(path, std::strerror(errno));
    }
    return text;
}
