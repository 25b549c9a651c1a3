#include "notes/note_editor_window.h"

#include "resources/ids.h"
#include "win32/panes.h"

static HWND editControl = nullptr;

HWND NoteEditControl() {
    return editControl;
}

bool RegisterNoteEditorClass() {
    return RegisterPaneClass(kNoteEditorClass, DefWindowProcA, COLOR_BTNFACE);
}

HWND CreateNoteEditor(HWND frame) {
    static constexpr struct {
        const char* text;
        int id;
    } kButtons[] = {{"Save", IDC_NOTE_SAVE}, {"Cancel", IDC_NOTE_CANCEL}, {"Help", IDC_NOTE_HELP}};

    const HWND editor = CreateChild(frame, kNoteEditorClass, "", WS_CLIPCHILDREN | WS_CLIPSIBLINGS, 0, IDC_NOTE_EDITOR);
    for (const auto& [text, id] : kButtons) {
        CreateChild(editor, "BUTTON", text, WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON, 0, id);
    }
    editControl = CreateChild(editor, "RICHEDIT", "",
                              WS_VISIBLE | WS_VSCROLL | WS_TABSTOP | ES_MULTILINE | ES_WANTRETURN | ES_AUTOVSCROLL,
                              WS_EX_CLIENTEDGE, IDC_NOTE_EDIT);
    SendMessageA(editControl, EM_SETEVENTMASK, 0, ENM_SELCHANGE);
    return editor;
}
