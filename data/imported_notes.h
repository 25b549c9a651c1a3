// Notes of imported texts: an ordinary set of a commentary, a devotional set of daily readings.
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
    std::string text;             // as its module marks it up
    bool isIntroduction = false;  // to the chapter or the book that begins with the verse
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
    int cutNotes = 0;
    int movedTexts = 0;        // pieces of a text on a whole chapter that went to the verses that they are on
    int readingsOnPsalms = 0;  // that name no verse
    int daysWithoutText = 0;   // of the 366
    LostCharacters lost;
};

// A note on the first verse of each entry; introductions stand at the head of their verse's. Where an entry is the only
// one of its chapter and on its first verse, the paragraphs that begin with a bold "Verse 7." or "Ver. 7." and what
// follows them make the note on that verse.
ImportedNotes NotesOfCommentary(const std::vector<CommentaryEntry>& entries, const VerseRecords& records,
                                const ReferenceReader& reader);

// A reading's note is on the first verse that it names; one that names none has a verse of the Psalms, the next reading
// the next verse. An entry with the headings "Morning" and "Evening" is two readings, any other one for both times. A
// day without an entry has the readings of the day before it.
ImportedNotes NotesOfDays(const std::vector<DayEntry>& entries, const VerseRecords& records,
                          const ReferenceReader& reader);
