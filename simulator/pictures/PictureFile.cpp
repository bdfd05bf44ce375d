#include "simulator/pictures/PictureFile.h"

#include "platform/graphics/PNG.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <unistd.h>

namespace fs = std::filesystem;

std::optional<Failure> writeWholeFile(std::string_view bytes, const fs::path& file) {
    std::error_code error;
    fs::create_directories(file.parent_path(), error); // what stands in its way is told when the file is opened
    const fs::path part = file.string() + "." + std::to_string(getpid()) + ".part";
    std::ofstream stream(part, std::ios::binary);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    std::string reason = stream.fail() ? std::strerror(errno) : "";
    if (reason.empty()) {
        fs::rename(part, file, error);
        reason = error ? error.message() : "";
    }
    if (reason.empty()) {
        return std::nullopt;
    }
    fs::remove(part, error);
    return Failure{"cannot write " + file.string() + ": " + reason};
}

std::optional<Failure> savePicture(const Bitmap& picture, const fs::path& file) {
    const std::vector<std::uint8_t> bytes = encodePNG(picture);
    return bytes.empty() ? Failure{"cannot write " + file.string() + ": the picture has no pixels"}
                         : writeWholeFile({reinterpret_cast<const char*>(bytes.data()), bytes.size()}, file);
}
