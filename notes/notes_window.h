// The Notes window: a read-only view of the current note, in the tab control of the note sets.
#pragma once

#include <cstdint>
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
    std::vector<std::int32_t> references;  // of the cross-reference line that was followed
};
extern NotesPane theNotes;

bool RegisterNotesClass();

// Creates the pane with its view inside `tabs`, hidden.
void CreateNotesPane(HWND tabs);

// Gives the view its own window procedure back.
void RestoreNoteView();

// Makes the font of the view and of the editor.
void SetNotesFont(const FontChoice& choice);

// Reads the note of `verse` in the current set and shows it, with its verse in the status bar. Does nothing while a
// note is edited; says so when the set's file cannot be opened.
void ReadNote(int verse);

// Shows the text of the current note as it was read, searched or saved last.
void ShowNoteText();

// Makes `set` the current one, shows its note of `verse` and selects its tab. Does nothing while a note is edited.
void ShowNoteOfSet(int set, int verse);

// Characters `start` to `end` of the note, as the view's selection counts them.
struct NoteSelection {
    int start = 0, end = 0;
};
NoteSelection SelectionInNote();

// Selects these characters, brings them into view and makes them what Copy takes.
void SelectInNote(const NoteSelection& selection);

// Is the selection to be seen while the view does not have the focus?
void KeepNoteSelectionShown(bool shown);

// A key by which a note's text is walked through, though it means a command elsewhere: it goes to the text first.
bool IsNoteTextKey(const MSG& message);
