// Finding a text in a note that is stored in UTF-8 (notes/note_letters.h).
//
// Unless case matters, the capital and the small letters of the Latin, Greek and Cyrillic scripts are the same, and so
// are the forms of a letter that only its place in a word decides, as the Greek sigmas. Letters that Unicode has twice
// are the same in any case.
//
// A Hebrew word is found with any points and accents, or none. Only if case matters and the text that is looked for has
// points itself, they have to be the same.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// A text without the differences that do not matter.
struct FoldedText {
    std::u32string letters;
    std::vector<std::size_t> places;  // of each letter, in bytes of the text, and of the text's end
};

struct LetterTarget {
    std::u32string letters;  // folded; if empty, it is in no note
    bool isCaseSensitive = false;
    bool hasPoints = false;    // Hebrew points count
    bool isSubstring = false;  // a letter or digit may stand beside it
};

// `text` is what to look for, in UTF-8.
LetterTarget LetterTargetOf(std::string_view text, bool isCaseSensitive, bool isSubstring);

// In bytes.
struct LetterMatch {
    std::size_t place = 0, size = 0;
};

// The first match in the UTF-8 text `note` that begins at `from` or behind it, with the points that belong to its last
// letter. After a match inside a longer word the search goes on behind the whole match. `memory` is used for the folded
// note, so that it can be kept from one note to the next.
std::optional<LetterMatch> FindLetters(const LetterTarget& target, std::string_view note, std::size_t from,
                                       FoldedText& memory);

// ---- Letters --------------------------------------------------------------------------------------------------------

// The small letter of a capital one, of any other form of a letter its plain form; otherwise the letter itself.
char32_t SmallLetter(char32_t letter);

// Is it a letter or a digit, or a mark that belongs to one?
bool IsInWordLetter(char32_t letter);
