// A folder of text files that are named by verses, one for each note: "Rom 8.28.txt", "Romans 8-28.txt",
// "45-Rom-008-028.txt", "1 John 3_16 - God is love.md".
//
//     name     = [ order ], book, [ "chapter" ], number, [ [ "verse" ], number, [ last ] ], [ title ], ending ;
//     order    = 1 to 99, with or without zeros in front, that is not the number of the book ;
//     book     = [ "1" | "2" | "3" | "I" | "II" | "III" ], name, beginning of a name or abbreviation ;
//     last     = the last verse of a range; the note belongs to the first one ;
//     title    = anything without figures in front ;
//
// Between them stands anything but letters and figures, or nothing between letters and figures. In a book with one
// chapter a number alone is a verse, in others it is a chapter, whose first verse has the note.
#pragma once

#include <span>
#include <string>

#include "exchange/exchanged_notes.h"

struct NamedText {
    std::string name;   // of the file, in UTF-8, with its ending and without the folder
    std::string bytes;  // of the file, in the encodings of NoteFormat
};

inline constexpr char kNoteFilePatterns[] = "*.txt;*.md";

// The notes of the files, in the order of verses. Of two files for one verse the second is unplaced. A line end at the
// end of a file is not part of the note.
ExchangedNotes ReadNoteFolder(const ExchangeContext& context, std::span<const NamedText> files);
