// Little-endian integers in the program's files, at any alignment.
#pragma once

#include <cstdint>

inline int LittleEndian16(const unsigned char* bytes) {
    return bytes[0] | bytes[1] << 8;
}

inline std::uint32_t LittleEndian32(const unsigned char* bytes) {
    return static_cast<std::uint32_t>(bytes[0]) | static_cast<std::uint32_t>(bytes[1]) << 8 |
           static_cast<std::uint32_t>(bytes[2]) << 16 | static_cast<std::uint32_t>(bytes[3]) << 24;
}

// Stores `value` in the four bytes at `bytes`.
inline void StoreLittleEndian32(std::uint32_t value, unsigned char* bytes) {
    for (int i = 0; i < 4; ++i) bytes[i] = static_cast<unsigned char>(value >> (8 * i) & 0xFF);
}
