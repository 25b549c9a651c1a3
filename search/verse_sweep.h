// Counting words and finding phrases in the texts of many verses, which are swept sixteen bytes at a time.
//
// The results are those of key_word_marks.h for one verse after the other. Texts that do not stand between two zero
// bytes of the file, those at its ends and very long ones are looked at one by one.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "scripture/scripture.h"
#include "search/query.h"

// The sum of CountKeyWords for `verses`, for a query that does not mark a phrase.
int CountWordsInVerses(const Scripture& scripture, const Query& query, std::span<const std::int32_t> verses);

struct PhraseFinds {
    std::vector<std::int32_t> verses;  // those that contain the phrase
    int occurrences = 0;               // the sum of CountKeyWords for them
};

// Finds the phrase in `verses`, each of which is listed only once. The query marks a phrase; number `rarestWord` of its
// words is the one to sweep for, which takes the least time if it is rare.
PhraseFinds FindPhraseInVerses(const Scripture& scripture, const Query& query, std::span<const std::int32_t> verses,
                               std::size_t rarestWord);
