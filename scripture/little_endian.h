// Integers of the program's files, whose bytes lie lowest first at any address.
#pragma once

#include <cstdint>

inline std::uint32_t LittleEndian32(const unsigned char* bytes) {
    return static_cast<std::uint32_t>(bytes[0]) | static_cast<std::uint32_t>(bytes[1]) << 8 |
           static_cast<std::uint32_t>(bytes[2]) << 16 | static_cast<std::uint32_t>(bytes[3]) << 24;
}
