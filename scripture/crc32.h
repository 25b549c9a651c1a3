// CRC-32 of bytes (polynomial EDB88320, the one of zlib and PNG), the checksum in the program's own files.
#pragma once

#include <array>
#include <cstdint>
#include <span>

// What each value of a byte adds to the checksum.
inline constexpr std::array<std::uint32_t, 256> kCrc32OfBytes = [] {
    std::array<std::uint32_t, 256> sums{};
    for (std::uint32_t byte = 0; byte < sums.size(); ++byte) {
        std::uint32_t sum = byte;
        for (int bit = 0; bit < 8; ++bit) sum = (sum & 1) != 0 ? sum >> 1 ^ 0xEDB88320u : sum >> 1;
        sums[byte] = sum;
    }
    return sums;
}();

inline std::uint32_t Crc32(std::span<const unsigned char> bytes) {
    std::uint32_t sum = 0xFFFFFFFFu;
    for (const unsigned char byte : bytes) sum = sum >> 8 ^ kCrc32OfBytes[(sum ^ byte) & 0xFF];
    return ~sum;
}
