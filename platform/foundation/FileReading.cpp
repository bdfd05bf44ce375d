#include "platform/foundation/FileReading.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <new>
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

/// Reads to the end, wherever that is by now.
std::string readToEnd(std::ifstream& file, std::size_t expected) {
    std::string text;
    std::size_t size = 0;
    while (file) {
        text.resize(expected + 2 * size);
        file.read(text.data() + size, static_cast<std::streamsize>(text.size() - size));
        size += static_cast<std::size_t>(file.gcount());
    }
    text.resize(size);
    return text;
}

} // namespace

Result<std::string> readWholeFile(const std::filesystem::path& path) {
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    if (error) {
        return failure(path, error.message());
    }
    if (!std::filesystem::is_regular_file(status)) { // opening a pipe could wait for ever
        return failure(path, std::filesystem::is_directory(status) ? "it is a folder" : "it is not a regular file");
    }
    std::ifstream file(path, std::ios::binary);
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    if (!file || error || size > largestSize()) {
        return failure(path, std::strerror(file && !error ? EFBIG : errno));
    }
    try {
        std::string text = readToEnd(file, size + 4096); // more, so that one read meets the end
        return file.bad() ? Result<std::string>(failure(path, std::strerror(errno))) : Result(std::move(text));
    } catch (const std::bad_alloc&) {
        return failure(path, std::strerror(ENOMEM));
    }
}
