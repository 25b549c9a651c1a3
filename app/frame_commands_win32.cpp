#include "app/frame_commands_win32.h"

#include "app/frame_win32.h"
#include "app/output_commands_win32.h"
#include "notes/note_edit_control_win32.h"
#include "notes/note_editor_window.h"
#include "notes/notes_window.h"
#include "passage/passage_window.h"
#include "resources/help_topics.h"
#include "resources/ids.h"
#include "verselist/verse_list_window.h"
#include "win32/controls.h"
#include "win32/help_viewer.h"

void CloseFrame(int) {
    SendMessageA(theFrame.window, WM_CLOSE, 0, 0);
}

void ShowHelp(int command) {
    switch (command) {
        case IDM_HELP_RANGE: OpenHelpTopic(theFrame.window, kHelpFile, kTopicSpecifyRange); break;
        case IDM_HELP_PREFACE: OpenHelpTopic(theFrame.window, kHelpFile, kTopicPreface); break;
        default: OpenHelpContents(theFrame.window, kHelpFile);
    }
}

static int& ShownFlag(int command) {
    return command == IDM_VIEW_LIST      ? theFrame.shown.VerseListWindow
           : command == IDM_VIEW_PASSAGE ? theFrame.shown.ReadWindow
                                         : theFrame.shown.NotesWindow;
}

void TogglePane(int command) {
    int& shown = ShownFlag(command);
    shown = !shown;
    RefreshCommands();
    LayOut();
    InvalidateRect(theFrame.window, nullptr, FALSE);
}

void ToggleToolbar(int) {
    theFrame.shown.ToolBar = !theFrame.shown.ToolBar;
    RefreshCommands();
    LayOut();
    InvalidateRect(theFrame.window, nullptr, FALSE);
}

void FocusList(int) {
    RunIfEnabled(theFrame.window, IDM_VIEW_LIST);
    FocusVerseList();
}

void FocusPassage(int) {
    RunIfEnabled(theFrame.window, IDM_VIEW_PASSAGE);
    SetFocus(thePassage.window);
}

void FocusNotesPane(int) {
    RunIfEnabled(theFrame.window, IDM_VIEW_NOTES);
    SetFocus(IsEditingNote() ? theNoteEdit.window : theNotes.view);
}

void OpenContextMenu(int) {
    static constexpr LPARAM kPlace = MAKELPARAM(1, 1);
    const HWND focus = GetFocus();
    if (!focus) return;
    SendMessageA(focus, WM_RBUTTONDOWN, MK_RBUTTON, kPlace);  // the note view opens its menu on this,
    SendMessageA(focus, WM_RBUTTONUP, 0, kPlace);             // the other panes on this
}

void CopySelection(int) {
    switch (theSelection.SelectionOwner) {
        case kVerseListOwns: SendCommand(theVerseList.window, IDM_COPY); break;
        case kPassageOwns: SendCommand(thePassage.window, IDM_COPY); break;
        case kReferenceListOwns: CopyMarkedVerses(); break;
        case kNoteViewOwns: SendMessageA(theNotes.view, WM_COPY, 0, 0); break;
        case kNoteEditorOwns: CopyInEditor(); break;
    }
}

void CutSelection(int) {
    if (theSelection.SelectionOwner == kNoteEditorOwns) CutInEditor();
}

void PasteText(int) {
    if (IsEditingNote()) PasteInEditor();
}

void UndoEdit(int) {
    if (CanUndoInEditor()) UndoInEditor();
    if (CanRestoreEntries()) RestoreDeletedEntries();
}

void RedoEdit(int) {
    if (CanRedoInEditor()) RedoInEditor();
}

void SelectAll(int) {
    if (CanSelectAllInEditor()) SelectAllInEditor();
    if (CanSelectAllInNote()) SelectAllInNote();
}
