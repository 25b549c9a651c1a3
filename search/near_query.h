// Words near each other: what is asked, and the words of the word list that are meant.
//
// A word is a maximal run of A-Z, a-z and apostrophes, in the text as in what is typed; a hyphen separates two words.
// In what is typed, `*` stands for any number of letters, also for none, and `?` for exactly one; an apostrophe counts
// as a letter.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "search/word_index.h"

inline constexpr std::size_t kMostNearWords = 10;
inline constexpr int kMostWordsApart = 50;
inline constexpr int kMostVersesApart = 10;

enum NearUnit { kNearInWords = 0, kNearInVerse = 1, kNearInVerses = 2 };

// As they are stored; any values.
struct NearOptions {
    int Unit = kNearInWords;  // a NearUnit; other values count as kNearInWords
    int Distance = 5;         // in words or verses; not used for kNearInVerse
    int InOrder = 0;
};

// Two words that stand side by side are 1 word apart, two verses that follow one another 1 verse.
struct NearQuery {
    std::vector<std::string> patterns;  // at most kMostNearWords, in the order typed, lower-cased unless case-sensitive
    NearUnit unit = kNearInWords;
    int distance = 0;  // in words or verses; 0 for kNearInVerse
    bool inOrder = false;
    bool caseSensitive = false;
    int firstVerse = 0, lastVerse = -1;  // of the range that is searched
};

// What is typed as patterns, with a `*` on both sides of each if `parts`. Repeated stars become one.
std::vector<std::string> NearPatternsOf(std::string_view text, bool caseSensitive, bool parts);

// The distance and the unit brought into their limits.
NearUnit NearUnitOf(const NearOptions& options);
int NearDistanceOf(const NearOptions& options);

// The distance as a user may type it, also while it does not count.
int ShownNearDistance(const NearOptions& options);

// Is `word`, as it stands in the text, one that the pattern means? A pattern in lower case also means words with
// capitals if `anyCase`.
bool DoesPatternMean(std::string_view pattern, std::string_view word, bool anyCase);

// Has the pattern a `*` or `?`?
bool HasWildcard(std::string_view pattern);

// Numbers of the words in the word list that the pattern means, ignoring case; ascending.
std::vector<int> WordsMeant(const WordIndex& index, std::string_view pattern);

// Why nothing can be searched for with this distance, as a sentence for the user; null if it can. `words` is the number
// of words typed.
const char* ProblemOfNearDistance(const NearOptions& options, std::size_t words);
