#include "app/note_set_commands_win32.h"

#include "app/frame_win32.h"
#include "app/note_commands_win32.h"
#include "notes/note_set_changes.h"
#include "notes/note_set_dialog.h"
#include "notes/note_tabs_win32.h"
#include "notes/notes_window.h"
#include "passage/passage_window.h"
#include "verselist/verse_list_window.h"
#include "win32/controls.h"

static constexpr char kDeleteCaption[] = "Delete Note Set";

// Includes a new layout, because the number of tab rows may have changed.
static void ShowNewTabs() {
    ShowNoteTabs();
    LayOut();
}

static void CreateSetNamed(const std::string& name) {
    const std::string problem = CreateNoteSet(TheNoteFiles(), theNoteSets, name);
    if (!problem.empty()) return Complain(theFrame.window, problem.c_str());
    AddLastNoteTab();
    LayOut();
}

void CreateSet(int) {
    const auto name = AskNewSetName(theFrame.window);
    if (name) CreateSetNamed(*name);
    FocusNotes();
}

static void RenameSetTo(const std::string& name) {
    const std::string problem = RenameNoteSet(TheNoteFiles(), theNoteSets, name);
    if (!problem.empty()) return Complain(theFrame.window, problem.c_str());
    ShowNewTabs();
}

void RenameSet(int) {
    const NoteSet* set = CurrentSet(theNoteSets);
    if (!set) return;
    const auto name = AskChangedSetName(theFrame.window, NoteSetName(*set));
    if (name) RenameSetTo(*name);
    FocusNotes();
}

static bool IsDeletionMeant() {
    const std::string question = QuestionBeforeDeleting(theNoteSets);
    return MessageBoxA(theFrame.window, question.c_str(), kDeleteCaption, MB_YESNO | MB_ICONEXCLAMATION) == IDYES;
}

void DeleteSet(int) {
    if (theNoteSets.sets.size() <= 1) {
        MessageBoxA(theFrame.window, kOnlyOneSet, kDeleteCaption, MB_OK | MB_ICONINFORMATION);
        return;
    }
    if (!IsDeletionMeant()) return;
    const bool hadDevotional = theNoteSets.devotionalSet != kNoDevotionalSet;
    if (!DeleteNoteSet(TheNoteFiles(), theNoteSets)) return Complain(theFrame.window, kDeleteFailed);
    if (hadDevotional && theNoteSets.devotionalSet == kNoDevotionalSet) RemoveDevotionalMenu();
    ShowNewTabs();
    ReadNote(theNoteSets.currentVerse);
    RepaintNoteMarks();
}

void MarkSets(int) {
    if (!theFrame.startUpComplete) return;
    RefreshNotesInPassing();
    const VerseList& list = theVerseList.list;
    const bool empty = ListCount(list) == 0;
    const MarkedPlace place{
        .listPosition = empty ? kNoVerse : list.ListTop,
        .listVerse = empty ? kNoVerse : list.ListEntries[static_cast<std::size_t>(list.ListTop)],
        .passageVerse = thePassage.view.TopVerse,
    };
    if (MarkNoteTabs(place)) LayOut();
}

void UpdateNoteMarks(int command) {
    if (!theFrame.startUpComplete) return;
    RepaintNoteMarks();
    theNoteTabs.marked.reset();
    MarkSets(command);
}
