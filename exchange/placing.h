// Collecting what is read from a file: notes that have their verse, and texts that have none.
#pragma once

#include <string>
#include <string_view>

#include "exchange/exchanged_notes.h"
#include "exchange/portable_text.h"
#include "exchange/verse_names.h"

// What stands in a file for one note.
struct FoundNote {
    std::size_t line = 0;
    std::string where;  // for its verse
    VerseName verse;
    NoteMark mark;
    std::string text;  // as in PortableText
};

// Adds the note, or the reason why it cannot be one. An empty text is passed over, unless it is a note that was
// exported and then emptied.
void Place(const CodePage& page, FoundNote found, ExchangedNotes& notes);

// The text without empty lines at its beginning and end, if it was not exported: there they only part one note from the
// next.
std::string WithoutLayout(const NoteMark& mark, std::string_view text);

// To be called behind the last note: puts the notes in order, keeps the first of several for one verse, and says so if
// there are none at all.
void FinishPlacing(const VerseRecords& records, ExchangedNotes& notes);
