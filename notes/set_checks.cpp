#include "notes/set_checks.h"

#include <algorithm>

static constexpr int kTries = 3;  // the file may be replaced while it is read

// Its first use reads it, without a report unless it is missing.
static void LeaveToFirstUse(const NoteFiles& files, NoteSet& set) {
    set.isUnchecked = false;
    set.isUntold = !HasNoDataFile(set) && !files.stamp(files.device, set.dataFileName).exists;
    set.dataStamp = {};
}

static NoteSet* SetToCheck(NoteSets& notes) {
    NoteSet* current = CurrentSet(notes);
    if (current != nullptr && current->isUnchecked) return current;
    const auto found = std::ranges::find(notes.sets, true, &NoteSet::isUnchecked);
    return found != notes.sets.end() ? &*found : nullptr;
}

static void BeginAgain(const NoteFiles& files, NoteSet& set, SetCheck& check) {
    if (++check.tries < kTries)
        check.scan = BeginScan(files, set.dataFileName);
    else
        LeaveToFirstUse(files, set);
}

bool CheckNextPiece(const NoteFiles& files, NoteSets& notes, SetCheck& check) {
    NoteSet* set = SetToCheck(notes);
    if (set == nullptr) return false;
    if (check.scan.before.dataFileName != set->dataFileName) check = {BeginScan(files, set->dataFileName), 0};
    const ScanStep step = HasNoDataFile(*set) ? ScanStep::kCannotOpen : ScanNextPiece(files, check.scan);
    switch (step) {
        case ScanStep::kGoesOn: break;
        case ScanStep::kDone: TakeScan(files, *set, check.scan); break;
        case ScanStep::kCannotOpen: LeaveToFirstUse(files, *set); break;
        case ScanStep::kChanged: BeginAgain(files, *set, check); break;
    }
    if (!set->isUnchecked) check = {};
    return true;
}
