#include "app/set_checks_win32.h"

#include <algorithm>
#include <string>

#include "app/frame_win32.h"
#include "app/note_set_commands_win32.h"
#include "history/set_states.h"
#include "notes/note_editor_window.h"
#include "notes/note_tabs_win32.h"
#include "notes/notes_window.h"
#include "notes/set_checks.h"
#include "pane/status_bar_win32.h"
#include "win32/code_page.h"
#include "win32/files.h"

static bool HasWholeState(const NoteSet& set) {
    return HasWholeState(TheNoteFiles(), NoteSetName(set));
}

void OpenSets() {
    theFrame.damagedSet = LoadNoteSets(HasWholeState);
}

static bool TellRepairs() {
    if (std::ranges::none_of(theNoteSets.sets, &NoteSet::isUntold)) return false;
    const std::string damagedSet = TellRepairedSets(HasWholeState);
    if (!damagedSet.empty()) theFrame.damagedSet = damagedSet;
    return true;
}

// Of a folder that the program was started for: someone who looks for her notes should not think that they are lost.
static std::string TextOfPassedOverNotes() {
    const std::wstring folder = PassedOverFolder();
    if (folder.empty() || FilesIn(folder, "*.nmi").empty()) return "";
    return "The notes in " + NearestInCodePage(WithoutLongPrefix(folder)) +
           " are not shown: no files can be created there.";
}

void TellSetsNotShown() {
    const std::string passedOver = TextOfPassedOverNotes();
    ShowStatus(StatusPart::kSearchSummary, passedOver.empty() ? NotShownText(theNoteSets) : passedOver);
}

void ReadFirstNote() {
    NoteSet* set = CurrentSet(theNoteSets);
    if (set != nullptr && set->isUnchecked) {
        if (set->dataStamp.size > kScannedAtOnce) return;
        RefreshSet(TheNoteFiles(), *set);
        TellRepairs();
    }
    theNotes.hasRead = true;  // it is tried only once
    ReadNote(theNoteSets.currentVerse);
}

// Once the current set is checked.
static void ReadOwedNote() {
    const NoteSet* set = CurrentSet(theNoteSets);
    if (theNotes.hasRead || set == nullptr || set->isUnchecked) return;
    theNotes.hasRead = true;
    ReadNote(theNoteSets.currentVerse);
}

bool CheckSetsInIdleTime() {
    static SetCheck check;
    if (!theFrame.startUpComplete || IsEditingNote() || GetCapture() != nullptr) return false;
    const bool hasMore = CheckNextPiece(TheNoteFiles(), theNoteSets, check);
    if (TellRepairs()) ShowStatesOfDamagedSet();
    if (hasMore) TellChangedNotes();
    ReadOwedNote();
    return hasMore;
}
