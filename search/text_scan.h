// Finding words and phrases in a verse's text, in place.
//
// Where `anyCase` is asked for, what is looked for is in lower case and matches capitals too. A word is never empty; an
// empty phrase stands nowhere.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

inline constexpr std::size_t kNotFound = std::string_view::npos;

// Letters as neighbours of a word: bytes from 0x80 on count as such.
bool IsLetterOrHigh(char c);

// First place of `word` at `from` or later.
std::size_t FindInText(std::string_view text, std::string_view word, bool anyCase, std::size_t from);

// Is the word of `size` bytes at `place` one to mark when whole words are wanted? Not when a letter other than a
// paragraph mark stands before it, or a letter after it.
bool IsWholeWord(std::string_view text, std::size_t place, std::size_t size);

// Number of places of `word`, or of those that are whole words. For words that cannot overlap themselves.
int CountInText(std::string_view text, std::string_view word, bool anyCase, bool wholeWords);

// A phrase is looked for among letters, blanks and apostrophes; whatever else stands between them is passed over.
bool IsKeptInPhrase(char c);

// The pair of neighbours in `phrase` that is likely to be the rarest in the text: the place of its first. 0 for a
// phrase of one character.
std::size_t RarestPair(std::string_view phrase);

struct PhrasePlace {
    std::size_t first = kNotFound;  // where the phrase's first character stands
    std::size_t last = kNotFound;   // and its last
};

// The places of `phrase` from the beginning on, each beginning after the end of the one before. `pair` is any place in
// the phrase but the last character's, best its RarestPair.
std::vector<PhrasePlace> PhrasesInText(std::string_view text, std::string_view phrase, std::size_t pair, bool anyCase);

// How many PhrasesInText gives.
int CountPhrasesInText(std::string_view text, std::string_view phrase, std::size_t pair, bool anyCase);
