// Searching the notes of a set in the order of their verses. The search reads them into its own buffer, so that notes
// it only scans never appear in the Notes window or the editor.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "notes/note_sets.h"
#include "notes/text_sweep.h"
#include "search/query.h"

inline constexpr int kNoteSearchTextLimit = 149;  // characters

// Where a search continues.
struct ResumePoint {
    int verse = 0;
    std::size_t offset = 0;  // bytes, in the first note that is searched
};

struct NoteQuery {
    std::string text;            // as a note is stored, not empty; in the code page in capitals unless case-sensitive
    bool caseSensitive = false;  // otherwise the notes are converted to capitals
    bool substrings = false;     // otherwise a match must not have a letter or digit beside it
    SearchRange range;           // verses, including the last
};

enum class NoteSearchEnd { kFound, kNotFound, kUnreadable };

struct NoteMatch {
    NoteSearchEnd end = NoteSearchEnd::kNotFound;
    int verse = 0;
    std::size_t offset = 0, size = 0;  // of the match: bytes of the note
};

// Called before each part of the data file, a megabyte or less, with the first verse whose note is in it.
struct SearchProgress {
    void* device = nullptr;  // passed to `reached`
    void (*reached)(void* device, int verse) = nullptr;
    bool (*goesOn)(void* device) = nullptr;  // asked after each `reached`: false ends the search; null: always true
};

// The first match from `resume`, or from the start of the range if that is later. Verses without a note are skipped;
// the offset applies to the first verse that has one, and no match is found there if it is beyond that note's end. The
// search ends with kUnreadable at the first note that cannot be read because the set's data file cannot be opened.
//
// A note in the code page is compared byte by byte, one in UTF-8 letter by letter (notes/letter_search.h).
NoteMatch FindInNotes(const NoteFiles& files, NoteSet& set, const LetterTable& letters, const NoteQuery& query,
                      ResumePoint resume, const SearchProgress& progress);

// Adds the verses of the range whose notes have a match, ascending. Reads the set once, however many they are. The
// search ends with kUnreadable where FindInNotes does, otherwise with kNotFound.
NoteSearchEnd FindAllNotes(const NoteFiles& files, NoteSet& set, const LetterTable& letters, const NoteQuery& query,
                           const SearchProgress& progress, std::vector<std::int32_t>& verses);
