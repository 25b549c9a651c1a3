#include "notes/notes_window.h"

#include "notes/caret_keys_win32.h"
#include "notes/cross_references.h"
#include "notes/note_copy_win32.h"
#include "notes/note_edit_control_win32.h"
#include "notes/note_editor_window.h"
#include "notes/note_files_win32.h"
#include "notes/note_links_win32.h"
#include "notes/note_refresh.h"
#include "notes/note_source.h"
#include "notes/note_tabs_win32.h"
#include "notes/note_view_text_win32.h"
#include "pane/pane_look_win32.h"
#include "pane/selection_win32.h"
#include "pane/status_bar_win32.h"
#include "resources/ids.h"
#include "scripture/scripture_win32.h"
#include "typeset/faces_win32.h"
#include "win32/code_page.h"
#include "win32/controls.h"
#include "win32/panes.h"
#include "win32/plain_text.h"
#include "win32/popup_menu.h"

static constexpr char kNotesClass[] = "NOTEWND";

NotesPane theNotes;

static void CreateView();

// Another view in the place of the one that there is, without its text.
static void RenewView() {
    const HWND old = theNotes.view;
    const LRESULT options = SendMessageA(old, EM_GETOPTIONS, 0, 0);
    Unsubclass(old, theNotes.viewProcedure);
    CreateView();
    SendMessageA(theNotes.view, EM_SETOPTIONS, ECOOP_SET, options);
    SendMessageA(theNotes.view, WM_SETFONT, reinterpret_cast<WPARAM>(theNotes.font.get()), FALSE);
    DarkenNewRichEdit(theNotes.view);
    ReplaceChild(old, theNotes.view);
}

void ShowNoteText() {
    if (IsNoteRemovedSlowly()) RenewView();
    ShowInNoteView(theNotes.view, theNotes.font.get(), theNoteSets.noteText);
}

void TellChangedNotes() {
    unsigned timesChanged = 0;
    for (const NoteSet& set : theNoteSets.sets) timesChanged += set.timesChanged;
    if (timesChanged == theNotes.timesChanged) return;
    theNotes.timesChanged = timesChanged;
    SendCommand(FrameOf(theNotes.window), IDM_NOTES_CHANGED);
}

void ReadNote(int verse) {
    if (IsEditingNote() || theNoteSets.sets.empty()) return;
    const bool isRead = ReadNoteText(TheNoteFiles(), theScripture.records, theNoteSets, verse);
    TellChangedNotes();
    if (!isRead) {
        Complain(FrameOf(theNotes.window), kCannotReadNote);
        return;
    }
    theNotes.hasRead = true;
    ShowNoteText();
    ShowStatus(StatusPart::kNote, ReferenceText(theScripture.records, theNoteSets.currentVerse, BookForm::kName));
}

// A set that is not checked yet is read when it is used or when there is nothing else to do.
static bool Refresh(NoteSet& set) {
    return !set.isUnchecked && RefreshSet(TheNoteFiles(), set) == SetRefresh::kReadAgain;
}

static void RefreshCurrentSet() {
    NoteSet* set = CurrentSet(theNoteSets);
    if (set == nullptr) return;
    const bool isBack = theNoteSets.hasFailed && CanReadNotes(TheNoteFiles(), *set);
    if (Refresh(*set) || isBack) ReadNote(theNoteSets.currentVerse);
}

void RefreshNotes() {
    if (IsEditingNote()) return;
    RefreshCurrentSet();
    for (NoteSet& set : theNoteSets.sets) Refresh(set);
    TellChangedNotes();
}

void RefreshNotesInPassing() {
    static constexpr ULONGLONG kPause = 25;  // milliseconds
    static std::size_t turn = 0;
    static ULONGLONG last = 0;
    if (IsEditingNote() || theNoteSets.sets.empty() || GetTickCount64() - last < kPause) return;
    last = GetTickCount64();
    RefreshCurrentSet();
    NoteSet& other = theNoteSets.sets[turn++ % theNoteSets.sets.size()];
    if (&other != CurrentSet(theNoteSets)) Refresh(other);
    TellChangedNotes();
}

void ShowNoteOfSet(int set, int verse) {
    if (IsEditingNote()) return;
    SelectSet(theNoteSets, set);
    ReadNote(verse);
    SelectNoteTab(set);
}

NoteSelection SelectionInNote() {
    const CHARRANGE range = SelectedPlainText(theNotes.view);
    const auto place = [](LONG letters) {
        const CodePage& page = TheNoteFiles().codePage;
        return static_cast<int>(PlaceBehind(page, theNoteSets.noteText, static_cast<std::size_t>(letters)));
    };
    return {place(range.cpMin), place(range.cpMax)};
}

std::u16string TextSelectedInNote() {
    return PlainTextOfSelection(theNotes.view);
}

void SetNotesFont(const FontChoice& choice) {
    const LOGFONTA record = FontRecord(choice, DpiOf(theNotes.view));
    OwnedFont font(CreateFontIndirectA(&record));
    SetPlainTextFont(theNotes.view, font.get());
    SetNoteEditFont(font.get());
    theNotes.font = std::move(font);
    if (!thePaneLook.colors.isDark) return;
    for (const HWND text : {theNotes.view, theNoteEdit.window}) ColorRichEdit(text);  // a new font brings its own
}

void UseNotesFont(HWND control) {
    SendMessageA(control, WM_SETFONT, reinterpret_cast<WPARAM>(theNotes.font.get()), TRUE);
}

// A non-empty selection in the view is what Copy uses.
static void OnSelectionChange(const CHARRANGE& range) {
    theSelection.SelectionOwner = range.cpMin < range.cpMax ? kNoteViewOwns : kNobody;
    SendCommand(FrameOf(theNotes.window), IDM_REFRESH);
}

void SelectInNote(const NoteSelection& selection) {
    const auto letters = [](int place) {
        const CodePage& page = TheNoteFiles().codePage;
        return static_cast<LONG>(LettersBefore(page, theNoteSets.noteText, static_cast<std::size_t>(place)));
    };
    CHARRANGE range{letters(selection.start), letters(selection.end)};
    SendMessageA(theNotes.view, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
    SendMessageA(theNotes.view, EM_SCROLLCARET, 0, 0);
    OnSelectionChange(range);
}

bool CanSelectAllInNote() {
    return GetFocus() == theNotes.view && !theNoteSets.noteText.empty();
}

void SelectAllInNote() {
    CHARRANGE whole{0, PlainTextLength(theNotes.view)};
    SendMessageA(theNotes.view, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&whole));
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

// ---- The context menu -----------------------------------------------------------------------------------------------

static std::vector<MenuRow> Rows(HWND frame) {
    const bool noSelection = theSelection.SelectionOwner != kNoteViewOwns;
    const bool emptyList = IsGreyedInFrame(frame, IDM_NOTE_FOR_LIST);
    const bool bound = theNotes.BindNotes != 0;
    return {
        {IDM_COPY, "Copy Selected Text\t", noSelection},
        {},
        {IDM_EDIT_NOTE, "Edit This Note\t", IsGreyedInFrame(frame, IDM_EDIT_NOTE)},
        {},
        {IDM_PREVIOUS_NOTE, "Previous Note\t"},
        {IDM_NEXT_NOTE, "Next Note\t"},
        {IDM_PREVIOUS_NOTE_SET, "Previous Note Set\t"},
        {IDM_NEXT_NOTE_SET, "Next Note Set\t"},
        {},
        {IDM_NOTE_FOR_LIST, "Go to Note for Verse in Verse List\t", emptyList},
        {IDM_NOTE_FOR_PASSAGE, "Go to Note for Verse in Passage\t"},
        {IDM_GOTO_NOTE, "Go to Note for Verse...\t"},
        {IDM_VERSE_FOR_NOTE, "Read Verse for this Note\t"},
        {IDM_NOTES_ABOUT, "Notes About This Verse\t"},
        {},
        {.command = IDM_BIND_NOTES, .text = "Bind Notes to Passage Window", .checked = bound},
        {IDM_EXPORT_NOTES, "Export Notes..."},
        {IDM_IMPORT_NOTES, "Import Notes...", IsGreyedInFrame(frame, IDM_IMPORT_NOTES)},
        {},
        {IDM_NOTE_WORD_SEARCH, "Word Search with Selected Text...", noSelection},
        {IDM_NOTE_PHRASE_SEARCH, "Phrase Search with Selected Text...", noSelection},
        {IDM_NOTE_NOTE_SEARCH, "Search Notes with Selected Text...", noSelection},
    };
}

static void OpenMenu(POINT onScreen) {
    const HWND frame = FrameOf(theNotes.window);
    OpenPopupMenu(frame, onScreen, Rows(frame));
}
// ---- The window and its view ----------------------------------------------------------------------------------------

static void OnSetFocus(HWND, HWND) {
    SetFocus(theNotes.view);
}

static BOOL OnEraseBackground(HWND window, HDC dc) {
    RECT client{};
    GetClientRect(window, &client);
    FillWithColor(dc, client, thePaneLook.colors.paper);
    return TRUE;
}

static LRESULT CALLBACK NotesProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        HANDLE_MSG(window, WM_SETFOCUS, OnSetFocus);
        HANDLE_MSG(window, WM_ERASEBKGND, OnEraseBackground);
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

// The first click set the caret; the second one selects a word.
static LRESULT OnDoubleClick(WPARAM wParam, LPARAM lParam) {
    const auto caret = static_cast<std::size_t>(SelectionInNote().start);
    const LRESULT result = ToView(WM_LBUTTONDBLCLK, wParam, lParam);
    const NoteSets& notes = theNoteSets;
    theNotes.references = CrossReferences(theScripture.records, notes.noteText, caret, notes.currentVerse);
    if (!theNotes.references.empty()) SendCommand(FrameOf(theNotes.window), IDM_SHOW_REFERENCES);
    return result;
}

static void OnViewRButtonDown(HWND view, BOOL, int x, int y, UINT) {
    if (GetFocus() != view) SetFocus(view);
    POINT place{x, y};
    ClientToScreen(view, &place);
    OpenMenu(place);
}

static void OnViewContextMenu(HWND view, HWND under, UINT x, UINT y) {
    const int offset = OffsetOfKeyMenu(view);
    if (IsMenuByKey(x, y)) return OpenMenu(FromCornerOf(view, offset, offset));
    ToView(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(under), MAKELPARAM(x, y));
}

static void OnViewCopy() {
    CopyNoteText(theNotes.window, TextSelectedInNote());
}

static LRESULT CALLBACK ViewProcedure(HWND view, UINT message, WPARAM wParam, LPARAM lParam) {
    PrepareNoteView(view, message);
    if (FollowLinks({view, theNotes.font.get()}, message, wParam, lParam)) return message == WM_SETCURSOR;
    switch (message) {
        HANDLE_MSG(view, WM_RBUTTONDOWN, OnViewRButtonDown);
        HANDLE_MSG(view, WM_RBUTTONDBLCLK, OnViewRButtonDown);  // a second right click soon after the first
        HANDLE_MSG(view, WM_CONTEXTMENU, OnViewContextMenu);
        case WM_SETFOCUS: OnViewFocus(); break;
        case WM_COPY: OnViewCopy(); return 0;
        case WM_LBUTTONDBLCLK: return OnDoubleClick(wParam, lParam);
        case WM_KEYDOWN:
            if (IsKeyByWord(wParam)) return PressCaretKey({view, theNotes.viewProcedure}, wParam, lParam);
    }
    const LRESULT result = ToView(message, wParam, lParam);
    if (message == WM_SIZE || message == WM_SETFONT) ScrollBackToText(view);
    return result;
}

bool RegisterNotesClass() {
    return RegisterPaneClass(kNotesClass, NotesProcedure, COLOR_WINDOW);
}

static void CreateView() {
    theNotes.view = CreateChild(theNotes.window, "RICHEDIT", "",
                                WS_VISIBLE | WS_VSCROLL | WS_TABSTOP | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL,
                                WS_EX_CLIENTEDGE, IDC_NOTE_VIEW);
    SendMessageA(theNotes.view, EM_SETTEXTMODE, TM_PLAINTEXT, 0);  // its colours are not copied
    SendMessageA(theNotes.view, EM_SETEVENTMASK, 0, ENM_SELCHANGE);
    SendMessageA(theNotes.view, EM_EXLIMITTEXT, 0, kNoteBufferSize);
    theNotes.viewProcedure = Subclass(theNotes.view, ViewProcedure);
}

void CreateNotesPane(HWND tabs) {
    theNotes.window = CreateChild(tabs, kNotesClass, "Notes", WS_CLIPCHILDREN | WS_CLIPSIBLINGS, 0, IDC_NOTES);
    CreateView();
}

void RestoreNoteView() {
    Unsubclass(theNotes.view, theNotes.viewProcedure);
}

static bool IsText(HWND window) {
    return window && (window == theNoteEdit.window || window == theNotes.view);
}

bool IsNoteTextKey(const MSG& message) {
    if (message.message != WM_KEYDOWN || !IsText(message.hwnd) || !IsControlDown()) return false;
    return message.wParam == VK_HOME || message.wParam == VK_END || message.wParam == VK_PRIOR ||
           message.wParam == VK_NEXT;
}
