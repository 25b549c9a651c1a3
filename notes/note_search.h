// Searching the notes of a set, verse by verse. Notes are read into a buffer of the search's own: neither the note that
// is shown nor the editor ever sees one that was only looked through.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "notes/note_sets.h"
#include "search/query.h"

inline constexpr int kNoteSearchTextLimit = 149;  // characters

// What a code page has for capitals, and for letters and digits, byte by byte.
struct LetterTable {
    std::array<char, 256> capitals{};  // of each byte; itself where it has none
    std::array<bool, 256> inWords{};   // is it a letter or a digit?
};

// Those of plain ASCII.
LetterTable AsciiLetters();

// `text` in capitals.
std::string InCapitals(const LetterTable& letters, std::string_view text);

// Where a search goes on.
struct ResumePoint {
    int verse = 0;
    std::size_t offset = 0;  // in the first note that is looked through, in characters
};

struct NoteQuery {
    std::string text;            // not empty; in capitals unless case-sensitive
    bool caseSensitive = false;  // otherwise the notes are looked through in capitals
    bool substrings = false;     // otherwise no letter or digit may stand beside a match
    SearchRange range;           // verses, the last included
};

enum class NoteSearchEnd { kFound, kNotFound, kUnreadable };

struct NoteMatch {
    NoteSearchEnd end = NoteSearchEnd::kNotFound;
    int verse = 0;
    std::size_t offset = 0;  // in the note; the match is as long as the text looked for
};

// Hears of each verse that the search comes to.
struct SearchProgress {
    void* device = nullptr;  // handed back
    void (*reached)(void* device, int verse) = nullptr;
};

// The first match from `resume` on: from the range's beginning where that comes later. Verses without a note keep the
// offset for the first that has one; one beyond the note's end finds nothing there. kUnreadable as soon as a note
// cannot be read because the set's data file cannot be opened.
NoteMatch FindInNotes(const NoteFiles& files, const NoteSet& set, const LetterTable& letters, const NoteQuery& query,
                      ResumePoint resume, const SearchProgress& progress);
