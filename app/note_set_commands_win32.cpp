#include "app/note_set_commands_win32.h"

#include "app/frame_window.h"
#include "app/note_commands_win32.h"
#include "notes/note_set_changes.h"
#include "notes/note_set_dialog.h"
#include "notes/note_tabs_win32.h"
#include "notes/notes_window.h"
#include "passage/passage_window.h"
#include "verselist/verselist_window.h"
#include "win32/controls.h"

static constexpr char kDeleteCaption[] = "Delete Note Set";

// The tabs may take more or fewer rows now.
static void ShowNewTabs() {
    ShowNoteTabs();
    LayOut();
}

static void CreateSetNamed(const std::string& name) {
    const std::string problem = CreateNoteSet(TheNoteFiles(), theNotes.sets, name);
    if (!problem.empty()) return Complain(theFrame.window, problem.c_str());
    AddLastNoteTab();
    LayOut();
}

void CreateSet(int) {
    const auto name = AskNewSetName(theFrame.window);
    if (name) CreateSetNamed(*name);
    FocusNotes();
}

static bool HasCurrentSet() {
    return theNotes.sets.currentSet < static_cast<int>(theNotes.sets.sets.size());
}

static std::string CurrentSetName() {
    return NoteSetName(theNotes.sets.sets[static_cast<std::size_t>(theNotes.sets.currentSet)]);
}

static void RenameSetTo(const std::string& name) {
    const std::string problem = RenameNoteSet(TheNoteFiles(), theNotes.sets, name);
    if (!problem.empty()) return Complain(theFrame.window, problem.c_str());
    ShowNewTabs();
}

void RenameSet(int) {
    if (!HasCurrentSet()) return;
    const auto name = AskChangedSetName(theFrame.window, CurrentSetName());
    if (name) RenameSetTo(*name);
    FocusNotes();
}

static bool IsDeletionMeant() {
    const std::string question = QuestionBeforeDeleting(theNotes.sets);
    return MessageBoxA(theFrame.window, question.c_str(), kDeleteCaption, MB_YESNO | MB_ICONEXCLAMATION) == IDYES;
}

void DeleteSet(int) {
    if (theNotes.sets.sets.size() <= 1) {
        MessageBoxA(theFrame.window, kOnlyOneSet, kDeleteCaption, MB_OK | MB_ICONINFORMATION);
        return;
    }
    if (!IsDeletionMeant()) return;
    const bool hadDevotional = theNotes.sets.devotionalSet != kNoDevotionalSet;
    if (!DeleteNoteSet(TheNoteFiles(), theNotes.sets)) return Complain(theFrame.window, kDeleteFailed);
    if (hadDevotional && theNotes.sets.devotionalSet == kNoDevotionalSet) RemoveDevotionalMenu();
    ShowNewTabs();
    ReadNote(theNotes.sets.currentVerse);
    RepaintNoteMarks();
}

void MarkSets(int) {
    if (!theFrame.startUpComplete) return;
    const VerseList& list = theVerseList.list;
    const bool empty = ListCount(list) == 0;
    const MarkedPlace place{
        .listPosition = empty ? kNoVerse : list.ListTop,
        .listVerse = empty ? kNoVerse : list.ListEntries[static_cast<std::size_t>(list.ListTop)],
        .passageVerse = thePassage.view.TopVerse,
    };
    if (MarkNoteTabs(place)) LayOut();
}
