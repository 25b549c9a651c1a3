// Finding words and phrases in a verse's text, in place.
//
// With `anyCase` the search text must be in lower case and also matches uppercase letters. A word must not be empty; an
// empty phrase is never found.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

inline constexpr std::size_t kNoPlace = std::string_view::npos;

// Letters as neighbours of a word; bytes from 0x80 on count as letters.
bool IsLetterOrHigh(char c);

// First occurrence of `word` at `from` or later; kNoPlace if there is none.
std::size_t FindInText(std::string_view text, std::string_view word, bool anyCase, std::size_t from);

// Is the word of `size` bytes at `place` a whole word? Not if a letter other than a paragraph mark precedes it, or a
// letter follows it.
bool IsWholeWord(std::string_view text, std::size_t place, std::size_t size);

// Number of occurrences of `word`, or of those that are whole words. Only for words that cannot overlap themselves.
int CountInText(std::string_view text, std::string_view word, bool anyCase, bool wholeWords);

// A phrase is searched for among letters, spaces and apostrophes; anything else between them is skipped, except a zero
// byte: it ends a verse, so that several verse texts can be searched as one.
bool IsKeptInPhrase(char c);

// A phrase prepared for searching.
struct PhrasePattern {
    std::string phrase;              // letters, apostrophes and single spaces; in lower case if case is ignored
    std::string folds;               // for each character the bit that an uppercase letter lacks to match it
    std::size_t anchor = 0;          // start of three characters that are likely to be rare together
    std::array<char, 16> rest = {};  // the phrase from the anchor on
    std::array<char, 16> restFolds = {};
};
PhrasePattern PatternOf(std::string_view phrase, bool anyCase);

struct PhrasePlace {
    std::size_t first = kNoPlace;  // place of the phrase's first character
    std::size_t last = kNoPlace;   // and of its last
};

// The occurrence of the phrase that has its character number `anchor` at `place`; kNoPlace if there is none.
PhrasePlace PhraseAround(std::string_view text, const PhrasePattern& pattern, std::size_t anchor, std::size_t place);

// All occurrences of the phrase, first to last; none overlaps the one before.
std::vector<PhrasePlace> PhrasesInText(std::string_view text, const PhrasePattern& pattern);

// Appends the places that PhrasesInText would return to `places`.
void AppendPhrases(std::string_view text, const PhrasePattern& pattern, std::vector<PhrasePlace>& places);

// Number of places that PhrasesInText would return.
int CountPhrasesInText(std::string_view text, const PhrasePattern& pattern);
