// `vw notes about`: the notes that name a verse.
#include <algorithm>

#include "cli/asked_verses.h"
#include "cli/command_table.h"
#include "cli/note_objects.h"
#include "cli/notes_commands.h"
#include "cli/opened_notes.h"
#include "cli/shown_notes.h"
#include "cli/text_folder.h"
#include "notes/listed_notes.h"
#include "notes/note_source.h"
#include "notes/reference_index.h"
#include "notes/references_of_note.h"

// Of all sets: those that cannot be read are complained of, because nobody would know what is missing.
static ReferenceIndex IndexOf(OpenedNotes& notes, const VerseRecords& records) {
    for (NoteSet& set : notes.notes.sets) CheckReadable(notes, set);
    ReferenceIndex index = ReferenceIndexFor(records);
    while (IndexSome(notes.files, records, notes.notes, index, kIndexedAtOnce)) {
    }
    if (!IsWhole(index, notes.notes))
        throw Complaint{kFileTrouble, notes.argument + ": cannot read all notes in " + notes.folder};
    return index;
}

// The note with its first reference to the verse marked, and that reference; without one if another program has changed
// the note since it was indexed.
static void PrintNaming(Vw& vw, OpenedNotes& notes, const Scripture& scripture, const Chapters& chapters,
                        const NamingNote& naming, int about) {
    NoteSet& set = notes.notes.sets[static_cast<std::size_t>(naming.set)];
    const std::string note = NoteOf(notes, set, naming.verse);
    const auto reference = ReferenceThatNames(scripture.records, chapters, {note, naming.verse}, about);
    if (!reference) return;
    const NoteMatch match{NoteSearchEnd::kFound, naming.verse, reference->begin, reference->size};
    const StyledText text = ShownNote(notes, note, {&match, 1});
    if (vw.options.json)
        PrintAboutObject(vw, notes, set, scripture.records, naming.verse, text, {reference->first, reference->last});
    else
        PrintLinesOfNote(vw, notes, set, scripture.records, naming.verse, text, HeadOfLine::kSetFirst);
}

ExitCode ShowNotesAbout(Vw& vw, const NoteReadingOptions& options) {
    const Scripture scripture = TextOf(vw);
    const int verse = OneAskedVerse(vw, scripture.records, options.words, {options.strict});
    OpenedNotes notes = OpenNotes(vw, NoteAccess::kRead);
    const std::vector<NoteSet*> sets = SetsNamed(notes, options.set);
    const ReferenceIndex index = IndexOf(notes, scripture.records);
    std::vector<NamingNote> found = NotesThatName(index, notes.notes, verse);
    std::erase_if(found, [&](const NamingNote& naming) {
        return std::ranges::find(sets, &notes.notes.sets[static_cast<std::size_t>(naming.set)]) == sets.end();
    });
    StartPager(vw);
    for (const NamingNote& naming : found)
        if (!HasEnded(vw.printer)) PrintNaming(vw, notes, scripture, index.chapters, naming, verse);
    if (vw.surroundings.isTerminal && !vw.options.json)
        Print(vw.printer,
              NamingNotesSummary(found.size(), 0, ReferenceText(scripture.records, verse, BookForm::kName)) + "\n");
    return found.empty() ? kNothingFound : kFound;
}
