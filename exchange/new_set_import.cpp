// Separate from the import into a set that exists, which creates and removes no files of sets.
#include "exchange/new_set_import.h"

#include "notes/note_lock.h"
#include "notes/note_set_changes.h"

ImportPlan PlanForNewSet(const std::string& name, const ExchangedNotes& notes) {
    ImportPlan plan{.setName = name, .notes = {}, .unplaced = notes.unplaced};
    for (const ExchangedNote& note : notes.notes)
        if (!note.note.empty())
            plan.notes.push_back({.verse = note.verse, .kind = ImportKind::kNew, .mine = {}, .imported = note.note});
    return plan;
}

static bool IsStillEmpty(const NoteFiles& files, const NoteSet& set) {
    return files.size(files.device, set.dataFileName) <= kVerseCount;
}

// The index file first: without it the data file of empty notes is no set that a later start could show half.
static void RemoveLastSet(const NoteFiles& files, NoteSets& notes) {
    const NoteSet& set = notes.sets.back();
    if (!files.remove(files.device, IndexFileName(set))) return;
    files.remove(files.device, set.dataFileName);
    notes.sets.pop_back();
}

NewSetImport ImportIntoNewSet(const NoteFiles& files, NoteSets& notes, const ImportPlan& plan, const NoteTime& now) {
    const NoteLock lock = LockNoteFiles(files);
    const std::string problem = CreateNoteSet(files, notes, plan.setName);
    if (!problem.empty()) return {.problem = problem};
    ImportPlan real = plan;
    real.dataStamp = notes.sets.back().dataStamp;
    real.indexStamp = notes.sets.back().indexStamp;
    NewSetImport done{.result = ImportNotes(files, notes, real, now)};
    if (done.result.end != ImportEnd::kImported && IsStillEmpty(files, notes.sets.back())) RemoveLastSet(files, notes);
    return done;
}
