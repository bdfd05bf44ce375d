#include "simulator/pictures/PictureFile.h"

#include "platform/graphics/PNG.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

bool writingHasFailed = false;

/// Empty when all bytes have been written, else why not.
std::string writeTo(const fs::path& path, std::string_view bytes) {
    const int descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (descriptor < 0) {
        return std::strerror(errno);
    }
    std::string reason = writeAll(descriptor, bytes);
    if (close(descriptor) != 0 && reason.empty()) {
        reason = std::strerror(errno);
    }
    return reason;
}

/// Empty when the file is there whole.
std::string replaceWith(const fs::path& file, std::string_view bytes) {
    const fs::path part = file.string() + "." + std::to_string(getpid()) + ".part";
    std::string reason = writeTo(part, bytes);
    std::error_code error;
    if (reason.empty()) {
        fs::rename(part, file, error);
        reason = error ? error.message() : "";
    }
    if (!reason.empty()) {
        fs::remove(part, error);
    }
    return reason;
}

} // namespace

std::string writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = write(descriptor, bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR) {
            return std::strerror(errno);
        }
        bytes.remove_prefix(count < 0 ? 0 : static_cast<std::size_t>(count));
    }
    return "";
}

std::optional<Failure> writeWholeFile(std::string_view bytes, const fs::path& file) {
    std::error_code error;
    fs::create_directories(file.parent_path(), error); // what stands in its way is told when the file is opened
    const fs::file_status status = fs::status(file, error);
    const bool isStream = fs::exists(status) && !fs::is_regular_file(status);
    const fs::path target = fs::is_symlink(file, error) ? fs::weakly_canonical(file, error) : file; // the link stays
    const std::string reason = isStream ? writeTo(file, bytes) : replaceWith(target, bytes);
    writingHasFailed = writingHasFailed || !reason.empty();
    return reason.empty() ? std::nullopt : std::optional(Failure{"cannot write " + file.string() + ": " + reason});
}

std::optional<Failure> refusalOfPicture(const fs::path& file) {
    std::error_code error;
    const bool isForeign = fs::is_regular_file(file, error) && !readPNGSize(file.string());
    return isForeign ? std::optional(Failure{file.string() + " exists and is no PNG picture; it is left alone"})
                     : std::nullopt;
}

bool hasWritingFailed() {
    return writingHasFailed;
}

std::optional<Failure> savePicture(const Bitmap& picture, const fs::path& file) {
    const auto size =
        pictureSizeRefusal(static_cast<std::uint32_t>(picture.width()), static_cast<std::uint32_t>(picture.height()));
    if (size) {
        return Failure{"cannot write " + file.string() + ": " + size->what};
    }
    const std::vector<std::uint8_t> bytes = encodePNG(picture);
    return writeWholeFile({reinterpret_cast<const char*>(bytes.data()), bytes.size()}, file);
}
