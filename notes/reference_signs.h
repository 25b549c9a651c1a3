// What references in running text are made of: words, numbers, dashes, and the names of books.
//
// Text is that of a note (notes/note_letters.h), in a code page or in UTF-8: what is looked for is ASCII, but for
// dashes and wide blanks, which are known in both. All places are in bytes; one behind the end reads as a zero.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "scripture/letters.h"

inline char ByteAt(std::string_view text, std::size_t at) {
    return at < text.size() ? text[at] : '\0';
}

// The end of the blanks at `at`, which never are a line end.
std::size_t BlanksEnd(std::string_view text, std::size_t at);

// The end of the ASCII letters at `at`.
std::size_t LettersEnd(std::string_view text, std::size_t at);

// Is the text at `at` the word, in capitals or not, with no letter or digit behind it? `word` is in small letters.
bool IsWholeWordAt(std::string_view text, std::size_t at, std::string_view word);
inline bool IsWordAt(std::string_view text, std::size_t at, std::string_view word) {
    return LowerCased(ByteAt(text, at)) == word.front() && IsWholeWordAt(text, at, word);
}

// The end of a hyphen or dash at `at`, with the blanks around it; `at` if there is none.
std::size_t DashEnd(std::string_view text, std::size_t at);

// ---- Numbers --------------------------------------------------------------------------------------------------------

// A number of up to three digits, or a Roman one up to 150, that no letter or digit follows.
struct SpeltNumber {
    int value = 0;
    std::size_t end = 0;
    bool isRoman = false;
    bool isInCapitals = false;  // of a Roman one
    bool isOneLetter = false;   // of a Roman one
};

std::optional<SpeltNumber> FiguresAt(std::string_view text, std::size_t at);
std::optional<SpeltNumber> NumberAt(std::string_view text, std::size_t at);

// The number of a verse: figures that "a", "b" or "c" may follow, which tells a part of the verse, or "f" and the like
// (FollowingAt).
std::optional<SpeltNumber> VerseNumberAt(std::string_view text, std::size_t at);

// "f.", "ff.", "sq.", "et seq." and the like behind a number: what follows it belongs to the reference.
enum class Following { kNone, kOne, kAll };
struct FollowingWord {
    Following following = Following::kNone;
    std::size_t end = 0;
};
FollowingWord FollowingAt(std::string_view text, std::size_t at);

// ---- Words ----------------------------------------------------------------------------------------------------------

enum class PlaceWord { kNone, kVerse, kChapter };
struct SpeltPlaceWord {
    PlaceWord word = PlaceWord::kNone;
    std::size_t end = 0;  // behind its full stop and blanks
};

// "v.", "verses", "chap." and the like.
SpeltPlaceWord PlaceWordAt(std::string_view text, std::size_t at);

// A name of a book or an abbreviation of one, as in commentaries of four centuries.
struct SpeltBook {
    int book = 0;
    std::size_t end = 0;       // of its letters, without a full stop
    bool isWeak = false;       // is an English word, too, or is written in small letters
    bool isPlural = false;     // "Psalms"
    bool isFirstName = false;  // of people with numbers, such as "James II"
    bool isFullName = false;   // no abbreviation, so that a full stop behind it ends a sentence
};
std::optional<SpeltBook> BookAt(std::string_view text, std::size_t at);
