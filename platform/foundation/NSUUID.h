#pragma once

#include <array>
#include <cstdint>

/// An identifier of 128 bits, compared as such and not as text.
class NSUUID {
public:
    /// A new random identifier.
    [[nodiscard]] static NSUUID UUID();

    friend bool operator==(const NSUUID&, const NSUUID&) = default;

private:
    using Bytes = std::array<std::uint8_t, 16>;
    explicit NSUUID(const Bytes& bytes) : m_bytes(bytes) {}

    Bytes m_bytes;
};
