#include "platform/foundation/NSUUID.h"

#include <random>

NSUUID NSUUID::UUID() {
    std::random_device random;
    std::uniform_int_distribution<unsigned> byte(0, 255);
    Bytes bytes{};
    for (std::uint8_t& each : bytes) {
        each = static_cast<std::uint8_t>(byte(random));
    }
    bytes[6] = static_cast<std::uint8_t>((bytes[6] & 0x0F) | 0x40); // version 4: random
    bytes[8] = static_cast<std::uint8_t>((bytes[8] & 0x3F) | 0x80);
    return NSUUID(bytes);
}
