#include "app/note_commands_win32.h"

#include "app/commands_win32.h"
#include "app/frame_window.h"
#include "notes/goto_note_dialog.h"
#include "notes/notes_window.h"
#include "passage/passage_window.h"
#include "resources/ids.h"
#include "scripture/scripture_win32.h"
#include "verselist/verselist_window.h"
#include "win32/controls.h"

static constexpr int kSummaryPart = 0;  // of the status bar

static void ShowNotes() {
    RunIfEnabled(theFrame.window, IDM_VIEW_NOTES);
}

void FocusNotes() {
    ShowNotes();
    SetFocus(theNotes.view);
}

void GoToNote(int) {
    AskGotoNote(theFrame.window);
    FocusNotes();
}

void GoToNeighbouringNote(int command) {
    ShowNotes();
    const bool next = command == IDM_NEXT_NOTE;
    ReadNote(next ? NextNote(TheNoteFiles(), theNotes.sets) : PreviousNote(TheNoteFiles(), theNotes.sets));
}

void GoToNeighbouringSet(int command) {
    ShowNotes();
    const int count = static_cast<int>(theNotes.sets.sets.size());
    if (count == 0) return;
    const int step = command == IDM_NEXT_NOTE_SET ? 1 : count - 1;
    SelectNoteSet((theNotes.sets.currentSet + step) % count);
    RepaintNoteMarks();
}

void ShowNoteForPassage(int) {
    ShowNotes();
    ReadNote(PassageTargetVerse());
}

void ShowNoteForList(int) {
    ShowNotes();
    const int verse = VerseListTargetVerse();
    if (verse != kNoVerse) ReadNote(verse);
}

void ShowVerseForNote(int) {
    ScrollToVerse(theNotes.sets.currentVerse);
    RunIfEnabled(theFrame.window, IDM_VIEW_PASSAGE);
}

void ToggleBindNotes(int command) {
    theNotes.BindNotes = !theNotes.BindNotes;
    RefreshCommands();
    if (theNotes.BindNotes) ShowNoteForPassage(command);
}

void EditNote(int command) {
    if (!theFrame.startUpComplete) return;  // without its scripture the program knows no verse to write about
    ShowNotes();
    theNotes.editing = 1;
    SendCommand(theFrame.noteEditor, command);
    LayOut();
}

void EndEditingNote(int) {
    RefreshCommands();
    LayOut();
}

void ShowNoteReferences(int) {
    if (theNotes.references.empty()) return;
    ShowReferences(theNotes.references);
    SetStatusPart(theFrame.statusBar, kSummaryPart,
                  "x-refs for " + ReferenceText(theScripture.records, theNotes.sets.currentVerse, BookForm::kName));
    RunIfEnabled(theFrame.window, IDM_VIEW_LIST);
    RefreshCommands();
}

OfferedNoteSets NoteSetsToOffer() {
    OfferedNoteSets offered{{}, theNotes.sets.currentSet};
    for (const NoteSet& set : theNotes.sets.sets) offered.names.push_back(NoteSetName(set));
    return offered;
}
