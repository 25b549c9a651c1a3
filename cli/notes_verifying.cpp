// `vw notes verify`: what the window examines at its start and while it has nothing else to do, all at once.
#include "cli/command_table.h"
#include "cli/note_objects.h"
#include "cli/notes_commands.h"
#include "cli/opened_notes.h"
#include "cli/set_findings.h"

static Findings OpenAndCheck(const Vw& vw, NoteAccess access, std::size_t& sets) {
    OpenedNotes notes = OpenNotes(vw, access);
    Findings findings = CheckSets(notes.files, notes.notes, notes.opened);
    sets = notes.notes.sets.size();
    return findings;
}

static void PrintFinding(Vw& vw, const std::string& finding, bool isMended) {
    if (vw.options.json) return PrintFaultObject(vw, finding, isMended);
    Print(vw.printer, finding + "\n");
}

ExitCode VerifyNotes(Vw& vw, bool mends) {
    std::size_t sets = 0;
    const Findings found = OpenAndCheck(vw, mends ? NoteAccess::kMend : NoteAccess::kExamine, sets);
    const Findings left = mends && !found.empty() ? OpenAndCheck(vw, NoteAccess::kExamine, sets) : found;
    if (!found.empty() && !mends) Tell(vw, "nothing is changed on the disk; what follows would be done by --mend");
    for (const std::string& finding : found) PrintFinding(vw, finding, IsMended(finding, found, left));
    if (!left.empty()) return kFileTrouble;
    if (!vw.options.json) Print(vw.printer, "The note sets are whole: " + std::to_string(sets) + ".\n");
    return sets == 0 ? kNothingFound : kFound;
}
