// What is known of the texts of the verses, so that a search can sweep them without a closer look at each.
#pragma once

#include <cstddef>
#include <vector>

#include "scripture/scripture.h"

// A sweep may read so many bytes before and behind a text.
inline constexpr std::size_t kAround = 256;

// No text that is swept is longer. The longest verse has 534 bytes.
inline constexpr std::size_t kLongestSwept = 600;

enum TextKind : unsigned char {
    // At most kLongestSwept bytes, all below 0x80 except a paragraph mark at the beginning. A zero byte stands before
    // and behind them, and kAround bytes of the file stand there as well.
    kPlainText = 1,
    // And within its words stands nothing that a phrase search skips, as a hyphen.
    kPlainWords = 2,
};

// The kinds of each verse's text, added; fewer than there are verses if the files are damaged. Reads all texts, so it
// is done when no input waits. Searches give the same result without it, but take longer.
std::vector<unsigned char> FindTextKinds(const Scripture& scripture);
