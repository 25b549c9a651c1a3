// Makes notes from imported texts: an ordinary set from a commentary, a devotional set from daily readings.
#pragma once

#include <string>
#include <vector>

#include "data/code_page.h"
#include "data/marked_text.h"
#include "data/note_set_writer.h"
#include "data/verse_ranges.h"

// A commentary's text on a verse, or on a range of verses.
struct CommentaryEntry {
    VerseRange verses;
    std::string text;             // with the module's mark-up
    bool isIntroduction = false;  // to the chapter or book that begins with the verse
};

struct DayEntry {
    int month = 0;  // 1..12
    int day = 0;    // 1..31
    std::string text;
};

struct ImportedNotes {
    NoteTexts notes;
    DevotionalTable readings{};
    int introductions = 0;
    int referenceLines = 0;
    int sectionLines = 0;  // notes that only name the verse whose note is on them, too
    int cutNotes = 0;
    int notesInUtf8 = 0;       // with letters that Windows-1252 lacks
    int movedTexts = 0;        // parts of texts on whole chapters that were moved to their verses
    int readingsOnPsalms = 0;  // readings that do not name a verse
    int daysWithoutText = 0;   // of the 366
    ReplacedCharacters replaced;
};

// Makes a note on the first verse of each entry, with introductions at its beginning. If an entry is the only one of
// its chapter and on the first verse, its paragraphs that begin with a bold "Verse 7.", "Verses 7-9." or "Ver. 7.", and
// those that follow them, become the note on that verse, the first of those named.
//
// The other verses of an entry or of such paragraphs, and those of a chapter whose only entry is headed "Chapter 36",
// get the cross-reference line "# Ro 8:1", which leads to the verse of the note, unless they have a note of their own.
ImportedNotes NotesOfCommentary(const std::vector<CommentaryEntry>& entries, const VerseRecords& records,
                                const ReferenceReader& reader);

// A reading becomes a note on the first verse that it names. Readings that do not name a verse are assigned to the
// verses of the Psalms, one after the other. An entry with the headings "Morning" and "Evening" is two readings, any
// other entry is one for both times. A day without an entry has the readings of the day before it.
ImportedNotes NotesOfDays(const std::vector<DayEntry>& entries, const VerseRecords& records,
                          const ReferenceReader& reader);
