#pragma once

#include <algorithm>
#include <array>
#include <functional>
#include <random>

/// An identifier of 128 bits, compared as such and not as text.
class NSUUID {
public:
    /// A new random identifier.
    [[nodiscard]] static NSUUID UUID() {
        NSUUID made;
        std::random_device random;
        std::generate(made.m_parts.begin(), made.m_parts.end(), std::ref(random));
        return made;
    }

    friend bool operator==(const NSUUID&, const NSUUID&) = default;

private:
    NSUUID() = default;

    std::array<std::random_device::result_type, 4> m_parts{};
};
