// Opening the note sets at start-up, and first repairing what a killed program, a power failure or another program
// left.
//
// Only the data file NAME.nmd matters; everything else can be rebuilt from it:
//   NAME.nmd is missing, but NAME.nmd.temp is a whole data file     the temporary file replaces it: a save was stopped
//                                                                   between deleting the old file and renaming the new
//   NAME.nmi is missing, short, torn, or of another state           it is rebuilt from the data file
//   NAME.nmd does not have exactly one note for each verse          it is never written: the set is read-only, so that
//                                                                   the user can rescue its contents
//   NAME.nmd is missing or cannot be opened                         the set is there, but its notes cannot be read
//   NAME.nmd.temp and NAME.nmd are both whole                       the notes that only the temporary file has are put
//                                                                   among the earlier notes, and it is removed: a save
//                                                                   was stopped, or could not delete the old data file
// A data file that certainly was left by a conflict (notes/conflict_copies.h) stays without an index: it is there to be
// merged, not to become a set. A temporary file that is torn is left as it is. Valid files are only read.
//
// Recognizing an index of another state requires the end of every note: comparing less would miss, for example, two
// notes in the middle that grew and shrank by the same amount. At the start only the last note is compared, so that the
// start takes the same time however many notes there are. A set whose end is not as its index says is read completely
// and reported at once; each of the others is read completely when it is first used, or when the program has nothing
// else to do (notes/set_checks.h), and what that finds is repaired and reported then.
#pragma once

#include <span>
#include <string>

#include "notes/note_sets.h"
#include "notes/note_time.h"

inline constexpr int kNoDamagedSet = -1;

struct OpenedSets {
    bool created = true;             // result of FindNoteSets
    bool hasDamaged = false;         // the report mentions a set that is not whole
    int damagedSet = kNoDamagedSet;  // the first such set
    std::string report;              // what was repaired, for one message box; empty if nothing
    std::string unread;              // which data files cannot be read, for one line; empty if none
};

// Repairs what can be repaired and finds the sets (FindNoteSets), including sets without an index file. A data file
// that is missing or that another program has open is not reported: this is left to RepairCheckedSets. `now` is the
// time of the notes that are put among the earlier ones. The damage of the sets named `knownDamaged` is not reported
// again.
OpenedSets OpenNoteSets(const NoteFiles& files, NoteSets& notes, const NoteTime& now = {},
                        std::span<const std::string> knownDamaged = {});

// Repairs what has been found since by reading sets completely, and reports it like OpenNoteSets. The data files that
// the start could not open and that still cannot be opened are `unread`.
OpenedSets RepairCheckedSets(const NoteFiles& files, NoteSets& notes);
