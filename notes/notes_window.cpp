#include "notes/notes_window.h"

#include <algorithm>

#include "notes/cross_references.h"
#include "notes/note_editor_window.h"
#include "notes/note_files_win32.h"
#include "notes/note_menu_win32.h"
#include "output/faces_win32.h"
#include "output/output_win32.h"
#include "resources/ids.h"
#include "scripture/scripture_win32.h"
#include "win32/controls.h"
#include "win32/panes.h"
#include "win32/plain_text.h"
#include "win32/popup_menu.h"

NotesPane theNotes;

static constexpr int kNotePart = 2;  // of the status bar

const NoteFiles& TheNoteFiles() {
    static const NoteFiles files = WorkingFolderNoteFiles();
    return files;
}

bool NoteExists(int verse) {
    return NoteExists(TheNoteFiles(), theNotes.sets, verse);
}

void ShowNoteText() {
    SetPlainText(theNotes.view, theNotes.sets.noteText);
}

void ReadNote(int verse) {
    if (theNotes.editing || theNotes.sets.sets.empty()) return;
    if (!ReadNoteText(TheNoteFiles(), theScripture.records, theNotes.sets, verse)) {
        Complain(FrameOf(theNotes.window), kCannotReadNote);
        return;
    }
    ShowNoteText();
    SetStatusPart(GetDlgItem(FrameOf(theNotes.window), IDC_STATUS_BAR), kNotePart,
                  ReferenceText(theScripture.records, theNotes.sets.currentVerse, BookForm::kName));
}

void SelectNoteSet(int set) {
    if (theNotes.editing) return;
    theNotes.sets.currentSet = set;
    ReadNote(theNotes.sets.currentVerse);
    TabCtrl_SetCurSel(theNotes.tabs, set);
}

NoteSelection SelectionInNote() {
    const CHARRANGE range = SelectedPlainText(theNotes.view);
    const auto length = static_cast<LONG>(theNotes.sets.noteText.size());
    return {static_cast<int>(std::min(range.cpMin, length)), static_cast<int>(std::min(range.cpMax, length))};
}

void SetNotesFont(const FontChoice& choice) {
    const LOGFONTA record = FontRecord(choice);
    OwnedFont font(CreateFontIndirectA(&record));
    for (const HWND control : {theNotes.view, theNoteEditor.edit}) {
        SendMessageA(control, WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), TRUE);
    }
    theNotes.font = std::move(font);
}

// A selection in the view owns Copy; none owns it no more.
static void OnSelectionChange(const CHARRANGE& range) {
    theSelection.SelectionOwner = range.cpMin < range.cpMax ? kNoteViewOwns : kNobody;
    SendCommand(FrameOf(theNotes.window), IDM_REFRESH);
}

void SelectInNote(const NoteSelection& selection) {
    CHARRANGE range{selection.start, selection.end};
    SendMessageA(theNotes.view, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
    SendMessageA(theNotes.view, EM_SCROLLCARET, 0, 0);
    OnSelectionChange(range);
}

void KeepNoteSelectionShown(bool shown) {
    static constexpr LPARAM kNoHideSelection = ECO_NOHIDESEL;
    SendMessageA(theNotes.view, EM_SETOPTIONS, shown ? ECOOP_OR : ECOOP_AND,
                 shown ? kNoHideSelection : ~kNoHideSelection);
}

static LRESULT OnNotify(HWND window, int control, NMHDR* notification) {
    if (control == IDC_NOTE_VIEW && notification->code == EN_SELCHANGE && GetFocus() == theNotes.view) {
        OnSelectionChange(reinterpret_cast<const SELCHANGE*>(notification)->chrg);
        return 0;
    }
    return DefWindowProcA(window, WM_NOTIFY, static_cast<WPARAM>(control), reinterpret_cast<LPARAM>(notification));
}

static void OnSetFocus(HWND, HWND) {
    SetFocus(theNotes.view);
}

static LRESULT CALLBACK NotesProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        HANDLE_MSG(window, WM_SETFOCUS, OnSetFocus);
        HANDLE_MSG(window, WM_NOTIFY, OnNotify);
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

static void OnViewFocus() {
    if (theSelection.SelectionOwner == kNoteViewOwns) return;
    DropSelection();
    SendCommand(FrameOf(theNotes.window), IDM_REFRESH);
}

static LRESULT ToView(UINT message, WPARAM wParam, LPARAM lParam) {
    return CallWindowProcA(theNotes.viewProcedure, theNotes.view, message, wParam, lParam);
}

// The first click has put the caret where it was made; the second selects a word.
static LRESULT OnDoubleClick(WPARAM wParam, LPARAM lParam) {
    const auto caret = static_cast<std::size_t>(SelectionInNote().start);
    const LRESULT result = ToView(WM_LBUTTONDBLCLK, wParam, lParam);
    const NoteSets& notes = theNotes.sets;
    theNotes.references = CrossReferences(theScripture.records, notes.noteText, caret, notes.currentVerse);
    if (!theNotes.references.empty()) SendCommand(FrameOf(theNotes.window), IDM_SHOW_REFERENCES);
    return result;
}

static void OnViewRButtonDown(HWND view, BOOL, int x, int y, UINT) {
    if (GetFocus() != view) SetFocus(view);
    POINT place{x, y};
    ClientToScreen(view, &place);
    OpenNoteMenu(place);
}

static void OnViewContextMenu(HWND view, HWND under, UINT x, UINT y) {
    if (IsMenuByKey(x, y)) return OpenNoteMenu(FromCornerOf(view, kKeyMenuOffset, kKeyMenuOffset));
    ToView(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(under), MAKELPARAM(x, y));
}

static LRESULT CALLBACK ViewProcedure(HWND view, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        HANDLE_MSG(view, WM_RBUTTONDOWN, OnViewRButtonDown);
        HANDLE_MSG(view, WM_RBUTTONDBLCLK, OnViewRButtonDown);  // a second one soon after the first
        HANDLE_MSG(view, WM_CONTEXTMENU, OnViewContextMenu);
        case WM_SETFOCUS: OnViewFocus(); break;
        case WM_LBUTTONDBLCLK: return OnDoubleClick(wParam, lParam);
    }
    return ToView(message, wParam, lParam);
}

bool RegisterNotesClass() {
    return RegisterPaneClass(kNotesClass, NotesProcedure, COLOR_WINDOW);
}

void CreateNotesPane(HWND tabs) {
    theNotes.window = CreateChild(tabs, kNotesClass, "", WS_CLIPCHILDREN | WS_CLIPSIBLINGS, 0, IDC_NOTES);
    theNotes.view = CreateChild(theNotes.window, "RICHEDIT", "",
                                WS_VISIBLE | WS_VSCROLL | WS_TABSTOP | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL,
                                WS_EX_CLIENTEDGE, IDC_NOTE_VIEW);
    SendMessageA(theNotes.view, EM_SETEVENTMASK, 0, ENM_SELCHANGE);
    SendMessageA(theNotes.view, EM_EXLIMITTEXT, 0, kNoteBufferSize);
    theNotes.viewProcedure = Subclass(theNotes.view, ViewProcedure);
}

void RestoreNoteView() {
    Unsubclass(theNotes.view, theNotes.viewProcedure);
}
