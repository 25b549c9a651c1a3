// Searching the notes of a set, verse by verse. The search reads notes into its own buffer, so that notes it only scans
// never appear in the Notes window or the editor.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "notes/note_sets.h"
#include "search/query.h"

inline constexpr int kNoteSearchTextLimit = 149;  // characters

// Capital letters, and the set of letters and digits, of a code page.
struct LetterTable {
    std::array<char, 256> capitals{};  // capital of each byte, or the byte itself
    std::array<bool, 256> inWords{};   // is the byte a letter or a digit?
};

// The table of plain ASCII.
LetterTable AsciiLetters();

// `text` converted to capitals.
std::string InCapitals(const LetterTable& letters, std::string_view text);

// Where a search continues.
struct ResumePoint {
    int verse = 0;
    std::size_t offset = 0;  // characters, in the first note that is searched
};

struct NoteQuery {
    std::string text;            // not empty; in capitals unless case-sensitive
    bool caseSensitive = false;  // otherwise the notes are converted to capitals
    bool substrings = false;     // otherwise a match must not have a letter or digit beside it
    SearchRange range;           // verses, including the last
};

enum class NoteSearchEnd { kFound, kNotFound, kUnreadable };

struct NoteMatch {
    NoteSearchEnd end = NoteSearchEnd::kNotFound;
    int verse = 0;
    std::size_t offset = 0;  // in the note; the match has the length of the query's text
};

// Called with each verse that the search reaches.
struct SearchProgress {
    void* device = nullptr;  // passed to `reached`
    void (*reached)(void* device, int verse) = nullptr;
};

// The first match from `resume`, or from the start of the range if that is later. Verses without a note are skipped;
// the offset applies to the first verse that has one, and no match is found there if it is beyond that note's end. The
// search ends with kUnreadable at the first note that cannot be read because the set's data file cannot be opened.
NoteMatch FindInNotes(const NoteFiles& files, NoteSet& set, const LetterTable& letters, const NoteQuery& query,
                      ResumePoint resume, const SearchProgress& progress);
