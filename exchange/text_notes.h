// Notes as plain text, in UTF-8 with lines that end in CR LF:
//
//     Notes: My Notes
//     The last line of this file is "=== End ===".
//
//     === Romans 8:28 === ldmkapoc
//     The text of the note,
//     line by line.
//
//     === Romans 8:29 === bclmnkpa
//     ...
//
//     === End ===
//
// Behind the reference stands the mark of the note (exchange/portable_text.h). A line of a note that begins with "===",
// or with backslashes and "===", has one more backslash in front. Below each note is one empty line.
//
// When read, the title and the marks may be missing. If the second line is there, but not the one that it promises, the
// file has been cut; lines of notes may follow that one. "===Romans 8:28===" is the same as with blanks. A file that
// has no such line may have lines of a reference alone instead, behind an empty line. Empty lines around a note without
// a mark are not part of it.
#pragma once

#include <string>
#include <string_view>

#include "exchange/exchanged_notes.h"

std::string WriteTextNotes(const ExchangeContext& context, const ExchangedNotes& notes, const ExportOptions& options);
ExchangedNotes ReadTextNotes(const ExchangeContext& context, std::string_view bytes);
