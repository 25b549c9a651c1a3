// A folder of text files that are named by verses, one for each note: "Rom 8.28.txt", "Romans 8-28.txt",
// "45-Rom-008-028.txt", "1 John 3_16 - God is love.md". exchange/verse_names.h has the grammar of the names; behind the
// verse there may be a title.
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
// end of a file is not part of the note. The set has no name.
ExchangedNotes ReadNoteFolder(const ExchangeContext& context, std::span<const NamedText> files);
