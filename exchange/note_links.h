// The references in notes that become links of a web page.
#pragma once

#include "exchange/exchanged_notes.h"

// Finds those in lists behind "#" (notes/cross_references.h).
void FindListLinks(void* device, const VerseRecords& records, int verse, std::string_view text,
                   std::vector<NoteLink>& links);

// The links of a note's text as `finder` finds them, in order, without those that overlap, are empty, reach beyond the
// text or name no verse.
void FindNoteLinks(const LinkFinder& finder, const VerseRecords& records, int verse, std::string_view text,
                   std::vector<NoteLink>& links);
