// The references in notes that become links of a web page.
#pragma once

#include <string_view>
#include <vector>

#include "notes/text_reference.h"
#include "scripture/chapters.h"

// The references in running text (notes/references_in_text.h) and the items of lists behind "#"
// (notes/cross_references.h) in the note of `verse`, in the order of its text, which is UTF-8 without a mark. They do
// not overlap.
std::vector<TextReference> LinksOfNote(const VerseRecords& records, const Chapters& chapters, int verse,
                                       std::string_view text);
