// The editing control of the note editor: a rich-edit control that holds plain text, with the commands of the menu Edit
// that act in it.
#pragma once

#include <string>

#include "win32/windows_api.h"

// What was typed last. A step of Undo is a word with the blanks behind it, or what was deleted; a pause ends it, too.
struct TypedLast {
    bool isDeletion = false;
    bool isBlank = false;
    DWORD time = 0;  // of its message, milliseconds
};

struct NoteEditControl {
    HWND window = nullptr;
    WNDPROC procedure = nullptr;  // the control's own
    HFONT font = nullptr;         // the control's, of the view in the Notes window
    bool canPaste = false;        // it has the focus and the clipboard has text
    bool readOnly = false;        // its text is not exactly the note
    std::u16string letter;        // the first half of a letter of two halves
    TypedLast typed;
    LONG clicked = 0;          // where the mouse button went down
    std::string told;          // what the control shows in the status bar; empty if nothing
    std::string statusBefore;  // what was there
};
extern NoteEditControl theNoteEdit;

// Creates the control as the child IDC_NOTE_EDIT of `editor`. It sends the commands IDC_NOTE_SAVE for Ctrl+S and
// IDCANCEL for Esc to `editor`, and EN_CHANGE and EN_SELCHANGE.
void CreateNoteEditControl(HWND editor);

// Gives the control `font`, which must exist as long as the control has it.
void SetNoteEditFont(HFONT font);

// Ends a selection that the mouse is being dragged over, as letting the button go does. The control takes no letters
// while it waits for that.
void EndDragInNoteEdit();

// Restores the control's own window procedure.
void RestoreNoteEditControl();

// Shows `note`, of which nothing can be undone, with the caret at its start. False if its letters are not exactly those
// that are stored, for example because the system's code page has changed since they were written; then the note is
// shown as well as possible and cannot be changed.
bool FillNoteEdit(const std::string& note);

// Puts `note` in the place of all text, as one change that can be undone. The caret is then at its end.
void RetypeInNoteEdit(const std::string& note);

// The control's text as it is to be stored (notes/note_letters.h), lines ended by CR LF: the bytes of `before` if these
// are its letters.
std::string NoteInNoteEdit(const std::string& before);

// Types a letter that is not ASCII: a WM_CHAR of GetMessageW, before it is dispatched to the control, for which the
// system would convert it. False if the message is another one.
bool TakeNoteLetter(const MSG& message);

// To be called when the control's selection has changed.
void FollowNoteEditSelection();

// To be called when the clipboard has changed.
void FollowClipboard();

// The commands Cut, Copy and Paste.
void CutInEditor();
void CopyInEditor();
void PasteInEditor();

// Do Undo, Redo and Select All act in the control? Never while it does not have the focus.
bool CanUndoInEditor();
bool CanRedoInEditor();
bool CanSelectAllInEditor();

// These commands. They need that they can act.
void UndoInEditor();
void RedoInEditor();
void SelectAllInEditor();
