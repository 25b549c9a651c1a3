// Importing notes into a set that does not exist yet.
#pragma once

#include <string>

#include "exchange/note_import.h"

// The plan for a set named `name` as PlanImport would make it: every note is new.
ImportPlan PlanForNewSet(const std::string& name, const ExchangedNotes& notes);

struct NewSetImport {
    std::string problem{};  // why the set cannot be created, as a message for the user; empty if it was created
    ImportResult result{};  // of the import into it
};

// Creates the set of the plan as the last one and carries the plan out. If the notes cannot be written, the empty set
// is removed again.
NewSetImport ImportIntoNewSet(const NoteFiles& files, NoteSets& notes, const ImportPlan& plan, const NoteTime& now);
