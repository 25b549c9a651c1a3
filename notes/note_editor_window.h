// The note editor: a frame that takes the place of the Notes window while a note is edited. Its text is plain.
#pragma once

#include "win32/windows_api.h"

inline constexpr char kNoteEditorClass[] = "NOTEEDIT";

struct NoteEditor {
    HWND window = nullptr;
    HWND edit = nullptr;              // the rich-edit control
    WNDPROC editProcedure = nullptr;  // its own
    WNDPROC buttonProcedure = nullptr;
    HWND nextViewer = nullptr;  // behind the editor in the chain of those that watch the clipboard
    bool canPaste = false;      // the control has the focus, and the clipboard has text
    bool saving = false;        // or asking whether to; it is not begun twice
};
extern NoteEditor theNoteEditor;

bool RegisterNoteEditorClass();

// Creates the editor as a child of `frame`, hidden, with its buttons and its editing control. It opens the current note
// when it gets the command IDM_EDIT_NOTE, with `theNotes.editing` set, and sends its frame IDM_END_EDITING when it has
// closed. A note that cannot be read is not opened; it says so, and `editing` is 0 then.
HWND CreateNoteEditor(HWND frame);

// Cut, Copy and Paste.
void CutInEditor();
void CopyInEditor();
void PasteInEditor();

// May the program end? Asks whether to save the note that is being edited: Yes saves it, No lets it go, Cancel keeps
// the program. False also where the save failed.
bool MayLeaveEditor();

// A key by which a note's text is walked through, though it means a command elsewhere: it goes to the text first.
bool IsNoteTextKey(const MSG& message);
