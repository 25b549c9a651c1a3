// The references of a note, those in its running text (notes/references_in_text.h) and the items of its "#" lines
// (notes/cross_references.h), for the Notes window.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "notes/text_reference.h"
#include "scripture/chapters.h"
#include "scripture/scripture.h"

// A note as it is stored, and the verse that it belongs to.
struct NoteOfVerse {
    std::string_view text{};
    int verse = 0;
};

// The reference that has `place`, in bytes of the note, in it; nullopt if there is none.
std::optional<TextReference> ReferenceInNote(const VerseRecords& records, const Chapters& chapters,
                                             const NoteOfVerse& note, std::size_t place);

// The first reference that names the verse; nullopt if there is none.
std::optional<TextReference> ReferenceThatNames(const VerseRecords& records, const Chapters& chapters,
                                                const NoteOfVerse& note, int verse);

// The reference with the text of its verses, for a tool tip: "Romans 8:28" and the verse in the line below, or
// "Romans 8:28-30" and each verse with its number in a line of its own. Of many verses only the first, and "...".
std::string TextOfReference(const Scripture& scripture, const TextReference& reference);
