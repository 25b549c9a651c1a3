// The note editor: a frame that takes the place of the Notes window while a note is edited.
#pragma once

#include "win32/windows_api.h"

inline constexpr char kNoteEditorClass[] = "NOTEEDIT";

bool RegisterNoteEditorClass();

// Creates the editor as a child of `frame`, hidden, with its buttons and its editing control.
HWND CreateNoteEditor(HWND frame);

// The rich-edit control of the editor.
HWND NoteEditControl();
