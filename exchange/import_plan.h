// What an import will do with each note, before anything is written.
//
// A note is compared with that of the set now, and with what it was when the file was exported, which the file tells by
// a digest:
//   - the set has no note: new, or older if the imported one is among the notes it had, because it was emptied there;
//   - both are equal, or the set's note already has the imported one as a part (notes/joined_texts.h): the same;
//   - the set's note is still as it was exported: changed in the file, also if it was emptied there;
//   - the imported one is as it was exported, or is among the set's earlier notes: older;
//   - otherwise, and if the file does not tell what was exported: in conflict.
// Notes of the set that the file does not have stay as they are.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "exchange/exchanged_notes.h"

enum class ImportKind { kNew, kChanged, kConflict, kOlder };

// What happens to a note.
enum class ImportChoice {
    kKeep,  // the set's note stays
    kTake,  // the imported note takes its place
    kBoth,  // both texts in one note, the set's first
};

struct PlannedNote {
    int verse = 0;
    ImportKind kind = ImportKind::kNew;
    std::string mine{}, imported{};             // as they are stored
    ImportChoice choice = ImportChoice::kTake;  // kTake for new and changed ones, kBoth in conflict, kKeep for older
    bool operator==(const PlannedNote&) const = default;
};

struct ImportPlan {
    std::string setName;
    std::vector<PlannedNote> notes;  // those that are not the same, by verse
    int sameNotes = 0;
    std::vector<UnplacedText> unplaced{};     // what the file has besides
    NoteFileStamp dataStamp{}, indexStamp{};  // of the set's files when they were read
};

// Compares the notes with those of the set. nullopt if its data file cannot be read or is not whole: then nothing can
// be imported into it.
std::optional<ImportPlan> PlanImport(const NoteFiles& files, const NoteSet& set, const ExchangedNotes& notes);

// Gives all notes of this kind the same choice.
void ChooseForAll(ImportPlan& plan, ImportKind kind, ImportChoice choice);

// How many notes of the kind there are, and how many notes of the set the plan changes with its choices.
int CountOf(const ImportPlan& plan, ImportKind kind);
int ChangesOf(const ImportPlan& plan);
