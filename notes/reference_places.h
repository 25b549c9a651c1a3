// The parts of references in running text (notes/references_in_text.h) that stand behind a book or a word: chapters,
// verses, and the lists that they make.
#pragma once

#include <initializer_list>
#include <optional>
#include <string_view>
#include <vector>

#include "notes/reference_signs.h"
#include "notes/text_reference.h"
#include "scripture/chapters.h"

// What items of a list take from those before them, and how it is written.
struct ListState {
    int book = 0;
    int chapter = 0;
    int verse = 0;          // the last one; 0 behind a chapter
    bool isRoman = false;   // its chapters are
    bool hasStop = false;   // the book is an abbreviation with a full stop
    bool isPlural = false;  // "Psalms"
    bool isOfNote = false;  // without a book
    bool hasWord = false;   // its verse has a word in front
    std::size_t end = 0;    // of the item
};

struct Reader {
    const Chapters& chapters;
    std::string_view text;
    VerseRecord note;
    std::vector<TextReference>& found;
};

// A place that has been read.
struct ReadPlace {
    int first = kNoVerse, last = kNoVerse;
    ListState state{};  // behind it
};

inline char CharAt(const Reader& reader, std::size_t at) {
    return ByteAt(reader.text, at);
}

// The end of the first of the words that is at `at`; `at` if none is.
std::size_t WordEnd(const Reader& reader, std::size_t at, std::initializer_list<std::string_view> words);

// Can what comes at `at`, behind a number, not go on with it ("3 men")?
bool EndsPhrase(const Reader& reader, std::size_t at);

// Is the number before `end` a chapter with a verse behind it, as in "3:16"?
bool HasColon(const Reader& reader, std::size_t end);

bool HasOneChapter(const Reader& reader, int book);

// "9:1" or "ix. 1", not a whole chapter.
bool HasVerse(const ReadPlace& place);

// Verses at `at` in the chapter of the state.
std::optional<ReadPlace> VersesAt(const Reader& reader, const ListState& state, std::size_t at);

// The chapter of the state, which must exist.
ReadPlace WholeChapter(const Reader& reader, ListState state);

// A chapter at `at`, with its verses if it has some. In a book of one chapter also a verse alone.
std::optional<ReadPlace> PlaceAt(const Reader& reader, ListState state, std::size_t at);

// ---- Lists ----------------------------------------------------------------------------------------------------------

struct Separator {
    bool hasComma = false, hasSemicolon = false, hasStop = false;
    bool hasAnd = false;   // or a word like it
    bool hasWord = false;  // "see" and the like
    std::size_t end = 0;
};

Separator SeparatorAt(const Reader& reader, std::size_t at);

// The item behind the separator, which is behind the state.
std::optional<ReadPlace> NextItem(const Reader& reader, const ListState& state, const Separator& separator);

// Adds the place, which begins at `begin` with its book or word, and the list behind it. Returns their end.
std::size_t TakePlaceAndList(const Reader& reader, std::size_t begin, const ReadPlace& place);
