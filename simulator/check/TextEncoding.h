#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// What a text file is saved as, for checks of what people write.

/// What the file is instead of plain text in UTF-8, when its beginning tells; empty for one that may be that.
[[nodiscard]] std::string foreignEncoding(std::string_view text);
/// Where the first byte stands that is no UTF-8; npos when there is none.
[[nodiscard]] std::size_t firstInvalidUTF8(std::string_view text);
/// With each byte that is no UTF-8 as the character that it is in Latin-1, so that the text can be read on.
[[nodiscard]] std::string readableText(std::string_view text);
