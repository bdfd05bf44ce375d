#pragma once

#include "platform/foundation/Finding.h"
#include "platform/graphics/Bitmap.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

// Files that are there whole or not at all: whoever looks, or stops the program, meanwhile never finds half of one. The
// folders they need are made; what is no file, such as a pipe or a device, is written as it stands. Absent when the
// file was written.

[[nodiscard]] std::optional<Failure> writeWholeFile(std::string_view bytes, const std::filesystem::path& file);
/// As PNG. Refused when it is too large to be read again.
[[nodiscard]] std::optional<Failure> savePicture(const Bitmap& picture, const std::filesystem::path& file);

/// Why a picture must not be written to this file: it holds something else, and a mistyped name must not cost somebody
/// a list. Absent for what is no file: a pipe costs nobody anything.
[[nodiscard]] std::optional<Failure> refusalOfPicture(const std::filesystem::path& file);

/// Whether anything could not be written until now, by this process.
[[nodiscard]] bool hasWritingFailed();

/// To an open file, pipe or device. Empty when all bytes have been written, else why not.
[[nodiscard]] std::string writeAll(int descriptor, std::string_view bytes);
