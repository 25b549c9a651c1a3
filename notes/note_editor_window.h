// The note editor: a frame that replaces the Notes window while a note is edited. Its text is plain.
#pragma once

#include "win32/windows_api.h"

struct NoteEditor {
    HWND window = nullptr;
    HWND edit = nullptr;              // the rich-edit control
    WNDPROC editProcedure = nullptr;  // the control's own
    WNDPROC buttonProcedure = nullptr;
    HWND nextViewer = nullptr;  // next window in the clipboard viewer chain
    bool canPaste = false;      // the control has the focus and the clipboard has text
    bool editing = false;       // the editor is open; the current note must not change
    bool saving = false;        // saving, or asking whether to; must not be started again
};
extern NoteEditor theNoteEditor;

bool RegisterNoteEditorClass();

// Creates the hidden editor as a child of `frame`, with its buttons and its edit control. The command IDM_EDIT_NOTE
// opens the current note in it; a note that cannot be read is reported and not opened. The editor sends its frame
// IDM_SHOW_SAVED_NOTE after saving the note, and IDM_END_EDITING after closing.
void CreateNoteEditor(HWND frame);

// Is a note being edited?
bool IsEditingNote();

// The caller keeps ownership of the font.
void SetNoteEditorFont(HFONT font);

// The commands Cut, Copy and Paste.
void CutInEditor();
void CopyInEditor();
void PasteInEditor();

// Can the editor be left, for example to end the program? True if no note is being edited. Otherwise asks whether to
// save it: true for Yes if the save succeeds and for No, which discards the changes; false for Cancel, and during a
// save.
bool MayLeaveEditor();
