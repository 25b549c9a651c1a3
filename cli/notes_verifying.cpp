// `vw notes verify`: what the window examines at its start and while it has nothing else to do, all at once.
#include <algorithm>
#include <string_view>

#include "cli/command_table.h"
#include "cli/note_objects.h"
#include "cli/notes_commands.h"
#include "cli/opened_notes.h"
#include "notes/set_checks.h"

// Sentences about one set or file each, in UTF-8.
using Findings = std::vector<std::string>;

// The paragraphs of a report.
static void AddFindings(const OpenedNotes& notes, std::string_view report, Findings& findings) {
    while (!report.empty()) {
        const std::size_t end = std::min(report.find("\n\n"), report.size());
        std::string finding = Utf8OfNote(notes.files.codePage, std::string(report.substr(0, end)));
        if (std::ranges::find(findings, finding) == findings.end()) findings.push_back(std::move(finding));
        report.remove_prefix(std::min(end + 2, report.size()));
    }
}

// What the opening has found, and what reading all of the sets finds.
static Findings CheckSets(const Vw& vw, NoteAccess access, std::size_t& sets) {
    OpenedNotes notes = OpenNotes(vw, access);
    SetCheck check;
    while (CheckNextPiece(notes.files, notes.notes, check)) {
    }
    Findings findings;
    AddFindings(notes, notes.opened.report, findings);
    const OpenedSets checked = RepairCheckedSets(notes.files, notes.notes);
    AddFindings(notes, checked.report, findings);
    AddFindings(notes, checked.unread, findings);
    sets = notes.notes.sets.size();
    return findings;
}

static bool Contains(const Findings& findings, const std::string& finding) {
    return std::ranges::find(findings, finding) != findings.end();
}

// Of what was mended, the next check finds nothing. If it finds something else, that may be any of it.
static bool IsMended(const std::string& finding, const Findings& found, const Findings& left) {
    return std::ranges::all_of(left, [&](const std::string& other) { return Contains(found, other); }) &&
           !Contains(left, finding);
}

static void PrintFinding(Vw& vw, const std::string& finding, bool isMended) {
    if (vw.options.json) return PrintFaultObject(vw, finding, isMended);
    Print(vw.printer, finding + "\n");
}

ExitCode VerifyNotes(Vw& vw, bool mends) {
    std::size_t sets = 0;
    const Findings found = CheckSets(vw, mends ? NoteAccess::kMend : NoteAccess::kRead, sets);
    const Findings left = mends && !found.empty() ? CheckSets(vw, NoteAccess::kRead, sets) : found;
    if (!found.empty() && !mends) Tell(vw, "nothing is changed on the disk; what follows would be done by --mend");
    for (const std::string& finding : found) PrintFinding(vw, finding, IsMended(finding, found, left));
    if (!left.empty()) return kFileTrouble;
    if (!vw.options.json) Print(vw.printer, "The note sets are whole: " + std::to_string(sets) + ".\n");
    return sets == 0 ? kNothingFound : kFound;
}
