// What is typed in the dialog for words near each other: how many words it means, and why it cannot be searched for.
//
// It is UTF-16, because letters that the text lacks are letters all the same: "Ænon" is one word, which nothing in the
// text is, and not "non".
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "scripture/scripture.h"
#include "search/word_index.h"

// The words of all verses with their capitals, ascending, each spelling once. Reads the whole text.
std::vector<std::string> SpellingsOf(const Scripture& scripture);

struct KnownWords {
    const WordIndex& index;
    const std::vector<std::string>* spellings = nullptr;  // of the text, if the case counts
};

std::size_t CountNearWords(std::u16string_view text);

// "grace: 1 word; lov*: 14 words; xyzzy: no word" for the words of `text`, as typed; "" if there is none. Names of more
// than 24 characters are cut, and only the first kMostNearWords words are told. If the case counts, "god" and "God" are
// two words.
std::u16string NearCounts(const KnownWords& known, std::u16string_view text, bool parts);

// Why nothing can be searched for, as a sentence for the user; "" if it can.
std::u16string ProblemOfNearText(std::u16string_view text);
