#include "cli/sha256.h"

#include <array>
#include <bit>
#include <cstdint>
#include <vector>

using Words = std::array<std::uint32_t, 8>;

static constexpr std::size_t kBlockSize = 64;

static constexpr std::array<std::uint32_t, 64> kRounds = {
    0x428a2f98, 0x71374491, 0xb5c0fbcf, 0xe9b5dba5, 0x3956c25b, 0x59f111f1, 0x923f82a4, 0xab1c5ed5,
    0xd807aa98, 0x12835b01, 0x243185be, 0x550c7dc3, 0x72be5d74, 0x80deb1fe, 0x9bdc06a7, 0xc19bf174,
    0xe49b69c1, 0xefbe4786, 0x0fc19dc6, 0x240ca1cc, 0x2de92c6f, 0x4a7484aa, 0x5cb0a9dc, 0x76f988da,
    0x983e5152, 0xa831c66d, 0xb00327c8, 0xbf597fc7, 0xc6e00bf3, 0xd5a79147, 0x06ca6351, 0x14292967,
    0x27b70a85, 0x2e1b2138, 0x4d2c6dfc, 0x53380d13, 0x650a7354, 0x766a0abb, 0x81c2c92e, 0x92722c85,
    0xa2bfe8a1, 0xa81a664b, 0xc24b8b70, 0xc76c51a3, 0xd192e819, 0xd6990624, 0xf40e3585, 0x106aa070,
    0x19a4c116, 0x1e376c08, 0x2748774c, 0x34b0bcb5, 0x391c0cb3, 0x4ed8aa4a, 0x5b9cca4f, 0x682e6ff3,
    0x748f82ee, 0x78a5636f, 0x84c87814, 0x8cc70208, 0x90befffa, 0xa4506ceb, 0xbef9a3f7, 0xc67178f2,
};

static std::array<std::uint32_t, 64> ScheduleOf(const unsigned char* block) {
    std::array<std::uint32_t, 64> words{};
    for (std::size_t i = 0; i < 16; ++i)
        for (std::size_t byte = 0; byte < 4; ++byte) words[i] = words[i] << 8 | block[4 * i + byte];
    for (std::size_t i = 16; i < words.size(); ++i) {
        const std::uint32_t a = words[i - 15], b = words[i - 2];
        words[i] = words[i - 16] + (std::rotr(a, 7) ^ std::rotr(a, 18) ^ a >> 3) + words[i - 7] +
                   (std::rotr(b, 17) ^ std::rotr(b, 19) ^ b >> 10);
    }
    return words;
}

static void AddBlock(Words& state, const unsigned char* block) {
    const auto words = ScheduleOf(block);
    auto [a, b, c, d, e, f, g, h] = state;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::uint32_t chosen = (e & f) ^ (~e & g), most = (a & b) ^ (a & c) ^ (b & c);
        const std::uint32_t one =
            h + (std::rotr(e, 6) ^ std::rotr(e, 11) ^ std::rotr(e, 25)) + chosen + kRounds[i] + words[i];
        const std::uint32_t two = (std::rotr(a, 2) ^ std::rotr(a, 13) ^ std::rotr(a, 22)) + most;
        h = g, g = f, f = e, e = d + one, d = c, c = b, b = a, a = one + two;
    }
    const Words added = {a, b, c, d, e, f, g, h};
    for (std::size_t i = 0; i < state.size(); ++i) state[i] += added[i];
}

// What is behind the last whole block: its bytes, a bit, zeros, and the number of bits of all.
static std::vector<unsigned char> EndOf(std::span<const unsigned char> bytes) {
    const std::size_t rest = bytes.size() % kBlockSize;
    std::vector<unsigned char> end(bytes.end() - static_cast<std::ptrdiff_t>(rest), bytes.end());
    end.push_back(0x80);
    while (end.size() % kBlockSize != kBlockSize - 8) end.push_back(0);
    const std::uint64_t bits = std::uint64_t{bytes.size()} * 8;
    for (int shift = 56; shift >= 0; shift -= 8) end.push_back(static_cast<unsigned char>(bits >> shift));
    return end;
}

std::string Sha256Digits(std::span<const unsigned char> bytes) {
    Words state = {0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a, 0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};
    for (std::size_t at = 0; at + kBlockSize <= bytes.size(); at += kBlockSize) AddBlock(state, bytes.data() + at);
    const std::vector<unsigned char> end = EndOf(bytes);
    for (std::size_t at = 0; at < end.size(); at += kBlockSize) AddBlock(state, end.data() + at);
    std::string digits;
    for (const std::uint32_t word : state)
        for (int shift = 28; shift >= 0; shift -= 4) digits += "0123456789abcdef"[word >> shift & 0xF];
    return digits;
}
