// Searches for words near each other.
//
// Words are counted in one verse, as all searches but the one for words within some verses look at one verse at a time;
// that one stays in a chapter. All words of a match are in the range that is searched. Two words that stand side by
// side are 1 word apart, two verses that follow one another 1 verse; "within N" is asked of the first and the last word
// of a match. Each word that was typed needs a word of its own in the text, so a word that was typed twice needs two.
// Here, as nowhere else, a word is only found where it is the whole run of letters and apostrophes, also with its case:
// "lord" is not found in "LORD'S".
#pragma once

#include <string>

#include "scripture/scripture.h"
#include "search/near_query.h"
#include "search/search_result.h"
#include "search/word_index.h"

// The verses that have a word of a match, and how many words are in matches. Empty if nothing is typed.
SearchResult SearchNear(const Scripture& scripture, const WordIndex& index, const NearQuery& query);

// Marks the words of `verse` that are in a match as MarkKeyWords does; `text` is its text or the beginning of it.
// Returns how many were marked.
int MarkNearWords(const Scripture& scripture, const NearQuery& query, int verse, std::string& text);
