// Notes as comma-separated values (RFC 4180), in UTF-8 with a mark, so that spreadsheets know the encoding:
//
//     Set,Book,Chapter,Verse,Reference,Note,Mark
//     My Notes,Romans,8,28,Romans 8:28,"The text of the note,
//     line by line.",ldmkapoc
//
// Rows end in CR LF, lines within a note in LF. A note is always in quotation marks, which are doubled in it. The
// last column has the mark of the note (exchange/portable_text.h).
//
// A spreadsheet would compute a note or the name of a set that begins with "=", "+", "-", "@" or a tab, although it may
// come from anyone. It has an apostrophe in front, as those that begin with apostrophes and such a sign, and the mark
// has the word "guarded". When read, only rows with that word lose the apostrophe.
//
// When read, the columns are known by their headings, in any order and in capitals or not; others are passed over.
// Needed are the note ("Note", "Notes") and the verse ("Reference", "Ref", "Passage", or "Book", "Chapter" and "Verse",
// where the book may be a number). Commas, semicolons or tabs may part them; a first line "sep=;" says which. A row of
// a set other than the first one that is named is unplaced, as one with more cells than there are headings.
#pragma once

#include <string>
#include <string_view>

#include "exchange/exchanged_notes.h"

std::string WriteCsvNotes(const ExchangeContext& context, const ExchangedNotes& notes, const ExportOptions& options);
ExchangedNotes ReadCsvNotes(const ExchangeContext& context, std::string_view bytes);
