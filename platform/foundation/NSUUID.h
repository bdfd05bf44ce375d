#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// An identifier of 128 bits, compared as such and not as text.
class NSUUID {
public:
    /// A new random identifier.
    [[nodiscard]] static NSUUID UUID();
    /// From "E621E1F8-C36C-495A-93FC-0C247A3E6E5F", in either case.
    [[nodiscard]] static std::optional<NSUUID> UUIDWithString(std::string_view text);

    /// In upper case.
    [[nodiscard]] std::string UUIDString() const;

    friend bool operator==(const NSUUID&, const NSUUID&) = default;

private:
    using Bytes = std::array<std::uint8_t, 16>;
    explicit NSUUID(const Bytes& bytes) : m_bytes(bytes) {}

    Bytes m_bytes;
};
