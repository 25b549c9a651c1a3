// The note editor: a frame that takes the place of the Notes window while a note is edited. Its text is plain.
#pragma once

#include "win32/windows_api.h"

struct NoteEditor {
    HWND window = nullptr;
    HWND edit = nullptr;              // the rich-edit control
    WNDPROC editProcedure = nullptr;  // its own
    WNDPROC buttonProcedure = nullptr;
    HWND nextViewer = nullptr;  // behind the editor in the chain of those that watch the clipboard
    bool canPaste = false;      // the control has the focus, and the clipboard has text
    bool editing = false;       // it is open, and the current note stays
    bool saving = false;        // or asking whether to; it is not begun twice
};
extern NoteEditor theNoteEditor;

bool RegisterNoteEditorClass();

// Creates the editor as a child of `frame`, hidden, with its buttons and its editing control. It opens the current note
// when it gets the command IDM_EDIT_NOTE; a note that cannot be read is reported and not opened. It sends its frame
// IDM_SHOW_SAVED_NOTE when it has saved the note, and IDM_END_EDITING when it has closed.
void CreateNoteEditor(HWND frame);

// Is a note being edited?
bool IsEditingNote();

// The font stays the caller's.
void SetNoteEditorFont(HFONT font);

// Cut, Copy and Paste.
void CutInEditor();
void CopyInEditor();
void PasteInEditor();

// May the program end? Asks whether to save the note that is being edited: Yes saves it, No lets it go, Cancel keeps
// the program. False also where the save failed.
bool MayLeaveEditor();
