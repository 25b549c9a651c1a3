// Opens note sets as the program does until it has nothing left to do: the start, and the checks after it.
#pragma once

#include "notes/note_recovery.h"
#include "notes/set_checks.h"

// The reports of both in one.
inline OpenedSets OpenAndCheckSets(const NoteFiles& files, NoteSets& notes, const NoteTime& now = {}) {
    OpenedSets opened = OpenNoteSets(files, notes, now);
    for (SetCheck check; CheckNextPiece(files, notes, check);) continue;
    const OpenedSets later = RepairCheckedSets(files, notes);
    if (!opened.report.empty() && !later.report.empty()) opened.report += "\n\n";
    opened.report += later.report;
    opened.hasDamaged |= later.hasDamaged;
    if (opened.damagedSet == kNoDamagedSet) opened.damagedSet = later.damagedSet;
    return opened;
}
