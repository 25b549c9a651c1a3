// Separate from verifying, because the diagnosis tells the same findings in its own lines and mends nothing.

#include "cli/set_findings.h"

#include <algorithm>
#include <string_view>

#include "notes/set_checks.h"

static bool Contains(const Findings& findings, const std::string& finding) {
    return std::ranges::find(findings, finding) != findings.end();
}

// The paragraphs of a report.
static void AddFindings(const CodePage& page, std::string_view report, Findings& findings) {
    while (!report.empty()) {
        const std::size_t end = std::min(report.find("\n\n"), report.size());
        std::string finding = Utf8OfNote(page, std::string(report.substr(0, end)));
        if (!Contains(findings, finding)) findings.push_back(std::move(finding));
        report.remove_prefix(std::min(end + 2, report.size()));
    }
}

Findings CheckSets(const NoteFiles& files, NoteSets& notes, const OpenedSets& opened) {
    SetCheck check;
    while (CheckNextPiece(files, notes, check)) {
    }
    Findings findings;
    AddFindings(files.codePage, opened.report, findings);
    const OpenedSets checked = RepairCheckedSets(files, notes);
    AddFindings(files.codePage, checked.report, findings);
    AddFindings(files.codePage, checked.unread, findings);
    return findings;
}

// If the next check finds something else, that may be any of what was found.
bool IsMended(const std::string& finding, const Findings& found, const Findings& left) {
    return std::ranges::all_of(left, [&](const std::string& other) { return Contains(found, other); }) &&
           !Contains(left, finding);
}
