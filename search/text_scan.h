// Finding words and phrases in a verse's text, in place.
//
// Where `anyCase` is asked for, what is looked for is in lower case and matches capitals too. A word is never empty; an
// empty phrase stands nowhere.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

inline constexpr std::size_t kNoPlace = std::string_view::npos;

// Letters as neighbours of a word: bytes from 0x80 on count as such.
bool IsLetterOrHigh(char c);

// First place of `word` at `from` or later.
std::size_t FindInText(std::string_view text, std::string_view word, bool anyCase, std::size_t from);

// Is the word of `size` bytes at `place` one to mark when whole words are wanted? Not when a letter other than a
// paragraph mark stands before it, or a letter after it.
bool IsWholeWord(std::string_view text, std::size_t place, std::size_t size);

// Number of places of `word`, or of those that are whole words. For words that cannot overlap themselves.
int CountInText(std::string_view text, std::string_view word, bool anyCase, bool wholeWords);

// A phrase is looked for among letters, blanks and apostrophes; whatever else stands between them is passed over, but
// for a zero byte: it ends a verse, so that the texts of several may be searched as one.
bool IsKeptInPhrase(char c);

// A phrase made ready to be looked for.
struct PhrasePattern {
    std::string phrase;              // letters, apostrophes and single blanks; in lower case where capitals match too
    std::string folds;               // per character the bit that a capital lacks to match it
    std::size_t anchor = 0;          // where three characters begin that are likely to be rare together
    std::array<char, 16> rest = {};  // the phrase from there on
    std::array<char, 16> restFolds = {};
};
PhrasePattern PatternOf(std::string_view phrase, bool anyCase);

struct PhrasePlace {
    std::size_t first = kNoPlace;  // where the phrase's first character stands
    std::size_t last = kNoPlace;   // and its last
};

// The places of the phrase from the beginning on, each beginning after the end of the one before.
std::vector<PhrasePlace> PhrasesInText(std::string_view text, const PhrasePattern& pattern);

// Appends to `places` what PhrasesInText gives.
void AppendPhrases(std::string_view text, const PhrasePattern& pattern, std::vector<PhrasePlace>& places);

// How many PhrasesInText gives.
int CountPhrasesInText(std::string_view text, const PhrasePattern& pattern);
