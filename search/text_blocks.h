// Sixteen bytes of text at a time, with the SSE2 instructions that every x86-64 processor has.
//
// VERSEWELL_NO_SSE2 disables the vector code; byte-by-byte loops, which also handle short texts, are used instead.
#pragma once

#if (defined(__SSE2__) || defined(_M_X64)) && !defined(VERSEWELL_NO_SSE2)
#define VERSEWELL_USES_SSE2
#include <emmintrin.h>

#include <array>
#include <cstddef>

// For what runs once for each block: a call would cost more than the work. And for what is called seldom or runs long:
// if it became part of its caller, a loop would lack registers.
#ifdef _MSC_VER
#define VERSEWELL_BLOCKWISE __forceinline
#define VERSEWELL_APART __declspec(noinline)
#else
#define VERSEWELL_BLOCKWISE [[gnu::always_inline]] inline
#define VERSEWELL_APART [[gnu::noinline]]
#endif

// A comparison yields 0xFF in the bytes where it is true and 0 in the others.
using Block = __m128i;
inline constexpr std::size_t kBlockSize = 16;

VERSEWELL_BLOCKWISE Block Load(const char* from) {
    return _mm_loadu_si128(reinterpret_cast<const Block*>(from));
}

VERSEWELL_BLOCKWISE unsigned Bits(Block truths) {
    return static_cast<unsigned>(_mm_movemask_epi8(truths));
}

// A byte to compare with; `fold` is the bit that an uppercase letter lacks if case is ignored, otherwise 0.
struct WantedByte {
    Block value;
    Block fold;
};

VERSEWELL_BLOCKWISE Block Is(Block bytes, const WantedByte& wanted) {
    return _mm_cmpeq_epi8(_mm_or_si128(bytes, wanted.fold), wanted.value);
}

// Shifts the folded letters to the highest signed byte values, so that one signed comparison finds them.
VERSEWELL_BLOCKWISE Block AreLetters(Block bytes) {
    const Block folded = _mm_or_si128(bytes, _mm_set1_epi8(0x20));
    return _mm_cmpgt_epi8(_mm_add_epi8(folded, _mm_set1_epi8(0x7F - 'z')), _mm_set1_epi8('a' - 1 + 0x7F - 'z'));
}

// 0xFF in the first `count` bytes, from 0 to 16.
VERSEWELL_BLOCKWISE Block FirstBytes(std::size_t count) {
    static constexpr std::array<char, 2 * kBlockSize> kBytes = [] {
        std::array<char, 2 * kBlockSize> bytes = {};
        for (std::size_t i = 0; i < kBlockSize; ++i) bytes[i] = '\xFF';
        return bytes;
    }();
    return Load(kBytes.data() + kBlockSize - count);
}

#endif
