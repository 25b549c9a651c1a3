// The note editor: a frame that replaces the Notes window while a note is edited. Its text is plain.
#pragma once

#include <optional>
#include <string>

#include "notes/note_draft.h"
#include "win32/windows_api.h"

struct NoteEditor {
    HWND window = nullptr;
    WNDPROC buttonProcedure = nullptr;
    HWND nextViewer = nullptr;     // next window in the clipboard viewer chain
    bool editing = false;          // the editor is open; the current note must not change
    bool hasToldNoBackup = false;  // since the start
    bool saving = false;           // saving, or asking whether to; must not be started again
    unsigned changes = 0;          // of the text, and of opening and closing
    std::string openedOn;          // the note as it was stored when the editor was opened, up to its first NUL
};
extern NoteEditor theNoteEditor;

bool RegisterNoteEditorClass();

// Creates the hidden editor as a child of `frame`, with its buttons and its edit control. The command IDM_EDIT_NOTE
// opens the current note in it; a note that cannot be read is reported and not opened. The editor sends its frame
// IDM_SHOW_SAVED_NOTE after saving the note, and IDM_END_EDITING after closing.
void CreateNoteEditor(HWND frame);

// Gives its buttons the font and the size for the scaling of its screen.
void ScaleNoteEditor();

// Is a note being edited?
bool IsEditingNote();

// A number that changes whenever the editor is opened or closed or its text changes.
unsigned EditorChanges();

// The note in the editor; nullopt if none is being edited or its text is the one on which the editor was opened.
std::optional<NoteDraft> DraftInEditor();

// Edits a draft on. If no note is being edited, shows the note of its set and verse and opens the editor, as if the
// text had been typed into the note `openedOn`. If that note is already being edited, the draft replaces the text as
// one change that can be undone. False if another note is being edited, if the set does not exist or
// cannot be read, or if the note can only be read.
bool EditDraft(const NoteDraft& draft);

// Can the editor be left, for example to end the program? True if no note is being edited or its text has not changed.
// Otherwise asks whether to save it: true for Yes if the save succeeds and for No, which discards the changes; false
// for Cancel, and during a save.
bool MayLeaveEditor();
