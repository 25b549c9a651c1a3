// Notes as Markdown, in UTF-8 with lines that end in CR LF:
//
//     # My Notes <!-- notes, to the end mark -->
//
//     ## Romans 8:28 <!-- ldmkapoc -->
//
//     The text of the note,..
//     line by line.
//
//     <!-- end mark -->
//
// The comments, which are not shown, say that the first line is a title, have the marks of the notes
// (exchange/portable_text.h), and end the file. A line that has another one of the same paragraph below it ends in two
// blanks (".." above), as Markdown wants it for lines that are not joined. What Markdown would take for something else
// has a backslash in front: "\#", "\*", "\_", "\`", "\~", "\<" before tags, "\&" before entities, "\]" before "(", "["
// and
// ":", and at the beginning of a line "\>", "\=", "\|", "\-" and "\+" that are no bullets. A backslash before a
// punctuation mark or at the end of a line is doubled.
//
// When read, the comment of the title may be "<!-- notes -->", or the title may be missing; otherwise a file without
// the last comment has been cut. Headings of notes may follow it. A backslash before any punctuation mark is dropped,
// as two blanks or a backslash at the end of a line are. A heading of any level that names a verse begins a note.
// Others of the same or a higher level end it, and what stands below them is unplaced; deeper ones are part of it.
// Empty lines around a note without a mark are not part of it.
#pragma once

#include <string>
#include <string_view>

#include "exchange/exchanged_notes.h"

std::string WriteMarkdownNotes(const ExchangeContext& context, const ExchangedNotes& notes,
                               const ExportOptions& options);
ExchangedNotes ReadMarkdownNotes(const ExchangeContext& context, std::string_view bytes);
