// Notes on their way out of a note set into a file for other programs, or back.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "notes/note_search.h"
#include "notes/note_sets.h"
#include "scripture/scripture.h"

struct ExchangedNote {
    int verse = 0;
    std::string note{};  // as it is stored in a set, without NULs; empty if it was emptied in the file
    std::optional<std::uint32_t> digest{};  // DigestOf the note when it was exported; none in a file made by hand
    std::size_t line = 0;                   // where it begins in the file, from 1; 0 if there are no lines
    bool operator==(const ExchangedNote&) const = default;
};

// Something in a file that is no note of one verse.
struct UnplacedText {
    std::size_t line = 0;  // from 1; 0 if there are no lines
    std::string where;     // what stands there for a verse, or the name of a file; in UTF-8
    std::string reason;    // a sentence: "This verse does not exist."
    std::string text;      // the note that it would have been, as it would be stored; may be empty
};

struct ExchangedNotes {
    std::string setName;               // as sets are named; empty if it is not known
    std::vector<ExchangedNote> notes;  // ascending by verse, each verse once
    std::vector<UnplacedText> unplaced{};
    std::string error{};  // why nothing could be read: a sentence, with the line if there is one; empty on success
};

// What the formats need to know. All of it must outlive the calls.
struct ExchangeContext {
    const Scripture& scripture;
    CodePage page{};            // of the notes (NoteFiles::codePage)
    SearchProgress progress{};  // gets how far a file is, in numbers from 0 to kExchangeSteps; without procedures: none
};

inline constexpr int kExchangeSteps = 1000;

// How far a file has been written or read.
struct ExchangeSteps {
    const ExchangeContext& context;
    std::size_t all = 0;   // notes or bytes
    std::size_t done = 0;  // of them
    int told = -1;         // the last number that the progress got
};

// To be called before the next note, or so many more bytes. False if the user does not want it to go on: then what has
// been made so far is of no use.
bool GoesOn(ExchangeSteps& steps, std::size_t more = 1);

struct ExportOptions {
    bool hasVerseTexts = false;  // the text of each verse stands above its note; only if the format can have it
};

// What tells whether a note has changed since it was exported.
std::uint32_t DigestOf(std::string_view note);

// All notes of the set, with their digests, also those that are left of a damaged one. nullopt if its data file cannot
// be read.
std::optional<ExchangedNotes> NotesToExport(const NoteFiles& files, const NoteSet& set);
