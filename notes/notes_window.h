// The Notes window: a read-only view of the current note, in the tab control of the note sets.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "notes/note_files_win32.h"
#include "typeset/reading_options.h"
#include "win32/handles.h"

struct NotesPane {
    HWND window = nullptr;
    HWND view = nullptr;              // the rich-edit control
    WNDPROC viewProcedure = nullptr;  // the control's own
    OwnedFont font;
    int BindNotes = 1;                     // non-zero: the Notes window follows the Passage
    std::vector<std::int32_t> references;  // verses of the last cross-reference line that was followed
    unsigned timesChanged = 0;             // of all sets, when the frame was last told
    bool hasRead = false;                  // a note has been read since the start, or tried to
};
extern NotesPane theNotes;

bool RegisterNotesClass();

// Creates the hidden pane with its view inside `tabs`.
void CreateNotesPane(HWND tabs);

// Restores the view's own window procedure.
void RestoreNoteView();

// Sets the font of the view and of the editor.
void SetNotesFont(const FontChoice& choice);

// Gives a control of a dialog, which shows the text of a note, the same font.
void UseNotesFont(HWND control);

// Reads the note of `verse` in the current set and shows it, with its verse in the status bar. Does nothing while a
// note is being edited or if there are no sets; reports when the set's file cannot be opened.
void ReadNote(int verse);

// Shows the text of the current note as last read or saved.
void ShowNoteText();

// Reads the sets again whose files have changed, and shows the current note if its set is one of them. Says nothing if
// they cannot be read now. Does nothing while a note is being edited, because Save has to compare the files with those
// on which the editor was opened.
void RefreshNotes();

// The same for the current set and one other set, another one each time, and not more often than every 25 milliseconds:
// a pane that scrolls has no time to compare the files of 31 sets.
void RefreshNotesInPassing();

// Sends the frame IDM_NOTES_CHANGED if a note has been saved or a set has been read again since the last time.
void TellChangedNotes();

// Makes `set` the current one, shows its note of `verse` and selects its tab. Does nothing while a note is being
// edited.
void ShowNoteOfSet(int set, int verse);

// A selection in the note: from the byte `start` to the byte `end` of what is stored.
struct NoteSelection {
    int start = 0, end = 0;
};
NoteSelection SelectionInNote();

// The selected text, for other uses than as a part of the note.
std::u16string TextSelectedInNote();

// Selects this part, scrolls to them and makes them the selection that Copy uses.
void SelectInNote(const NoteSelection& selection);

// The command Select All acts in the view while it has the focus and a text.
bool CanSelectAllInNote();
void SelectAllInNote();

// Sets whether the selection is visible while the view does not have the focus.
void KeepNoteSelectionShown(bool shown);

// Is it a key that navigates in a note's text, although it is a command elsewhere? If so, the text gets it first.
bool IsNoteTextKey(const MSG& message);
