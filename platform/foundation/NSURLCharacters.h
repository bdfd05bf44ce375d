#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The characters of RFC 3986 and its percent-encoding; what NSURL and NSURLComponents share.

[[nodiscard]] bool isUnreserved(char character);
[[nodiscard]] bool isReserved(char character);
[[nodiscard]] bool isScheme(std::string_view text);

/// `text` with every byte but the unreserved ones and those in `literal` written as "%" and two upper-case digits.
[[nodiscard]] std::string percentEncoded(std::string_view text, std::string_view literal);
/// The byte that "%XX" at the start of `text` stands for; none when no such triple stands there.
[[nodiscard]] std::optional<char> decodedByte(std::string_view text);
[[nodiscard]] std::string percentDecoded(std::string_view text);
