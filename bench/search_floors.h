// Floors for searching: the least work that finds the same verses and counts the same occurrences in the real text.
// They walk the lists of the word index and sweep the verses' texts sixteen bytes at a time with SSE2, ignore case, and
// know no other option, no range and no damaged file.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "bench/floor_text.h"

// Walks the word's list and counts the word in the texts of its verses.
FloorAnswer FloorOfWord(const FloorText& text, std::string_view word);

// The verses of the rarest word that are in the lists of the other ones too, and all words counted in them.
FloorAnswer FloorOfAllWords(const FloorText& text, const std::vector<std::string>& words);

// Walks the list of the rarest word and counts the phrase in the texts; verses with the phrase are looked up in the
// lists of the other words.
FloorAnswer FloorOfPhraseByList(const FloorText& text, const std::vector<std::string>& words);

// Sweeps the whole text for the phrase; verses with it have to be in the lists of all words.
FloorAnswer FloorOfPhraseBySweep(const FloorText& text, const std::vector<std::string>& words);

// The verses of the rarer one of two words, which begin or end with different letters, that are in the list of the
// other one too and have the two at most `distance` words from each other; counts the words that have the other one so
// near.
FloorAnswer FloorOfNearWords(const FloorText& text, const std::vector<std::string>& words, int distance);

// Sweeps the block of all words for those that contain `part`, unites their lists, and counts `part` in the texts.
FloorAnswer FloorOfSubstring(const FloorText& text, std::string_view part);
