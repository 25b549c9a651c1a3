// Finding a short text in a large one, by the letters of a code page.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

// Capital letters, and the set of letters and digits, of a code page.
struct LetterTable {
    std::array<char, 256> capitals{};  // capital of each byte, or the byte itself
    std::array<bool, 256> inWords{};   // is the byte a letter or a digit?
};

// The table of plain ASCII.
LetterTable AsciiLetters();

// `text` converted to capitals.
std::string InCapitals(const LetterTable& letters, std::string_view text);

// Tells where a text cannot begin: a byte of it, at `place`, has all bits of `mask` as in `value`, in capitals or not.
struct SweepProbe {
    std::size_t place = 0;
    char mask = 0, value = 0;
};

// What a sweep looks for.
struct SweepTarget {
    std::string_view text;                  // not empty
    const LetterTable* letters = nullptr;   // null: case matters; otherwise each byte's capital is compared
    std::array<SweepProbe, 2> probes = {};  // two bytes that few other texts have
};

// `text` must outlive the target, and so must `letters`, which may be null.
SweepTarget TargetOf(std::string_view text, const LetterTable* letters);

// The first place of the target in `bytes`, from place `from` on; kNoPlace (search/text_scan.h) if there is none.
std::size_t FindTarget(const SweepTarget& target, std::string_view bytes, std::size_t from);
