// The floor for starting the program, resizing its frame, scrolling, showing a list and showing a note: creates the
// program's menu and controls behind its splash, loads its files, places its panes and paints verses there in the
// simplest way. A step moves what is on the screen and paints the line that comes into view; status bar and scroll box
// follow when no more input is waiting. Its Word Search does not search: OK closes the dialog and shows verses that
// were not searched for.

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>

#include "app/frame_layout.h"
#include "app/settings.h"
#include "notes/beginning_of_note.h"
#include "resources/ids.h"
#include "scripture/scripture.h"
#include "scripture/scripture_win32.h"
#include "search/word_index.h"
#include "typeset/faces_win32.h"
#include "win32/dpi.h"
#include "win32/panes.h"
#include "win32/plain_text.h"

namespace {

struct BareProgram {
    HWND frame = nullptr, splash = nullptr, toolbar = nullptr, statusBar = nullptr;
    HWND listTabs = nullptr, passageTabs = nullptr, noteTabs = nullptr;
    HWND list = nullptr, references = nullptr, passage = nullptr;
    HWND notes = nullptr, noteView = nullptr, editor = nullptr, noteEdit = nullptr;
    HIMAGELIST pictures = nullptr;
    HFONT font = nullptr, controlFont = nullptr, noteFont = nullptr;
    int lineHeight = 1;
    int topVerse = 0;
    int listTop = kNoVerse;  // the first verse of the list; kNoVerse: the list is empty
    Scripture scripture;
    WordIndex index;
};

}  // namespace
static BareProgram bare;

static constexpr int kSummaryPart = 0;  // of the status bar
static constexpr int kEntryPart = 1;
static constexpr int kNotePart = 2;
static constexpr int kPassagePart = 3;
static constexpr int kRangePart = 4;
static constexpr int kButtons[] = {IDM_CUT,
                                   IDM_COPY,
                                   IDM_PASTE,
                                   IDM_WORD_SEARCH,
                                   IDM_PHRASE_SEARCH,
                                   IDM_WORD_LIST_SEARCH,
                                   IDM_COPY_VERSE,
                                   IDM_COPY_RANGE,
                                   IDM_COPY_VERSE_LIST,
                                   IDM_COPY_REFERENCES,
                                   0,
                                   0,
                                   IDM_GOTO_VERSE,
                                   IDM_CONTEXT,
                                   IDM_VIEW_LIST,
                                   IDM_VIEW_PASSAGE,
                                   IDM_VIEW_NOTES,
                                   IDM_HELP_TOPICS,
                                   IDM_SEARCH_NOTES,
                                   IDM_GOTO_NOTE,
                                   IDM_EDIT_NOTE,
                                   IDM_NOTE_FOR_LIST,
                                   IDM_NOTE_FOR_PASSAGE,
                                   IDM_VERSE_FOR_NOTE};

static void CreateBareToolbar() {
    bare.toolbar = CreateChild(bare.frame, TOOLBARCLASSNAMEA, "",
                               WS_VISIBLE | WS_CLIPSIBLINGS | TBSTYLE_TOOLTIPS | TBSTYLE_FLAT, 0, IDC_TOOLBAR);
    const auto strip = static_cast<HBITMAP>(
        LoadImageA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDB_TOOLBAR), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION));
    bare.pictures = ImageList_Create(16, 16, ILC_COLOR32, static_cast<int>(std::size(kButtons)), 0);
    ImageList_Add(bare.pictures, strip, nullptr);
    DeleteObject(strip);
    TBBUTTON buttons[std::size(kButtons)]{};
    for (std::size_t i = 0; i < std::size(kButtons); ++i) {
        buttons[i].iBitmap = static_cast<int>(i);
        buttons[i].idCommand = kButtons[i];
        buttons[i].fsState = TBSTATE_ENABLED;
    }
    SendMessageA(bare.toolbar, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    SendMessageA(bare.toolbar, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(bare.pictures));
    SendMessageA(bare.toolbar, TB_ADDBUTTONSA, std::size(buttons), reinterpret_cast<LPARAM>(buttons));
}

static void ShowStatus(int part, const std::string& text) {
    SendMessageA(bare.statusBar, SB_SETTEXTA, static_cast<WPARAM>(part), reinterpret_cast<LPARAM>(text.c_str()));
}

static std::string NameOf(int verse) {
    return ReferenceText(bare.scripture.records, verse, BookForm::kName);
}

static HWND CreateTabs(int id, std::initializer_list<const char*> names) {
    const HWND tabs = CreateChild(bare.frame, WC_TABCONTROLA, "",
                                  WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS | TCS_MULTILINE, 0, id);
    SendMessageA(tabs, WM_SETFONT, reinterpret_cast<WPARAM>(bare.controlFont), FALSE);
    for (const char* name : names) {
        TCITEMA item{};
        item.mask = TCIF_TEXT;
        item.pszText = const_cast<char*>(name);
        SendMessageA(tabs, TCM_INSERTITEMA, static_cast<WPARAM>(TabCtrl_GetItemCount(tabs)),
                     reinterpret_cast<LPARAM>(&item));
    }
    return tabs;
}

static HWND CreateRichEdit(HWND parent, int id) {
    return CreateChild(parent, "RICHEDIT", "", WS_VISIBLE | WS_VSCROLL | WS_TABSTOP | ES_MULTILINE | ES_AUTOVSCROLL,
                       WS_EX_CLIENTEDGE, id);
}

static void CreateControls() {
    LoadLibraryA("RICHED32.DLL");
    bare.controlFont = MessageFont(bare.frame);
    CreateBareToolbar();
    bare.statusBar = CreateChild(bare.frame, STATUSCLASSNAMEA, "", WS_VISIBLE, 0, IDC_STATUS_BAR);
    bare.listTabs = CreateTabs(IDC_LIST_TABS, {"Verse List", "Reference List"});
    bare.passageTabs = CreateTabs(IDC_PASSAGE_TABS, {"Passage"});
    bare.noteTabs = CreateTabs(IDC_NOTE_TABS, {"My Notes"});
    bare.list = CreateChild(bare.listTabs, "BareList", "", WS_VISIBLE | WS_VSCROLL, WS_EX_CLIENTEDGE, IDC_VERSE_LIST);
    bare.references = CreateChild(bare.listTabs, "LISTBOX", "",
                                  WS_VSCROLL | LBS_NOTIFY | LBS_MULTIPLESEL | LBS_EXTENDEDSEL | LBS_NOINTEGRALHEIGHT,
                                  WS_EX_CLIENTEDGE, IDC_REFERENCE_LIST);
    bare.passage =
        CreateChild(bare.passageTabs, "BarePassage", "", WS_VISIBLE | WS_VSCROLL, WS_EX_CLIENTEDGE, IDC_PASSAGE);
    bare.notes =
        CreateChild(bare.noteTabs, "BarePane", "", WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, 0, IDC_NOTES);
    bare.noteView = CreateRichEdit(bare.notes, IDC_NOTE_VIEW);
    bare.editor = CreateChild(bare.frame, "BarePane", "", WS_CLIPCHILDREN | WS_CLIPSIBLINGS, 0, IDC_NOTE_EDITOR);
    for (const int id : {IDC_NOTE_SAVE, IDC_NOTE_CANCEL, IDC_NOTE_HELP}) {
        CreateChild(bare.editor, "BUTTON", "Button", WS_VISIBLE, 0, id);
    }
    bare.noteEdit = CreateRichEdit(bare.editor, IDC_NOTE_EDIT);
}

static bool LoadFiles() {
    const DataFiles files = ScriptureDataFiles();
    return LoadWordIndex(files, bare.index) == IndexLoad::kLoaded && LoadScripture(files, bare.scripture);
}

// ---- Layout ---------------------------------------------------------------------------------------------------------

static int HeightOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return static_cast<int>(place.bottom - place.top);
}

static void Place(HWND window, int x, int y, int width, int height) {
    SetWindowPos(window, nullptr, x, y, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

static void PlaceInTabs(HWND tabs, const Area& place, std::initializer_list<HWND> contents) {
    RECT room{0, 0, place.width, place.height};
    Place(tabs, place.x, place.y, place.width, place.height);
    TabCtrl_AdjustRect(tabs, FALSE, &room);
    for (const HWND content : contents)
        Place(content, room.left, room.top, room.right - room.left, room.bottom - room.top);
}

static void OnSize(HWND, UINT sizeType, int width, int height) {
    for (const HWND bar : {bare.toolbar, bare.statusBar}) {
        SendMessageA(bar, WM_SIZE, sizeType, MAKELPARAM(width, height));
    }
    int edges[kStatusPartCount];
    StatusPartEdges(width, edges);
    SendMessageA(bare.statusBar, SB_SETPARTS, kStatusPartCount, reinterpret_cast<LPARAM>(edges));
    const FrameLayout layout =
        LayOutFrame({width, height, HeightOf(bare.toolbar), HeightOf(bare.statusBar)}, ShownPanes{}, false);
    PlaceInTabs(bare.listTabs, layout.list.place, {bare.list, bare.references});
    PlaceInTabs(bare.passageTabs, layout.passage.place, {bare.passage});
    PlaceInTabs(bare.noteTabs, layout.notes.place, {bare.notes});
    RECT room{};
    GetClientRect(bare.notes, &room);
    Place(bare.noteView, 0, 0, room.right, room.bottom);
}

// ---- Painting -------------------------------------------------------------------------------------------------------

// One verse on each line that has to be painted.
static void PaintVerses(HDC dc, const RECT& place, int top) {
    SelectObject(dc, bare.font);
    for (int line = place.top / bare.lineHeight; line * bare.lineHeight < place.bottom; ++line) {
        const std::string_view text = VerseText(bare.scripture, ClampVerse(top + line));
        TextOutA(dc, 1, line * bare.lineHeight, text.data(), static_cast<int>(text.size()));
    }
}

static void OnListPaint(HWND window) {
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(window, &paint);
    if (bare.listTop != kNoVerse) PaintVerses(dc, paint.rcPaint, bare.listTop);
    EndPaint(window, &paint);
    if (bare.listTop != kNoVerse) ShowStatus(kEntryPart, NameOf(bare.listTop));
}

static LRESULT CALLBACK ListProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) { HANDLE_MSG(window, WM_PAINT, OnListPaint); }
    return DefWindowProcA(window, message, wParam, lParam);
}

// ---- The Passage ----------------------------------------------------------------------------------------------------

static void ShowPosition() {
    ShowStatus(kPassagePart, NameOf(bare.topVerse));
    SetScrollPos(bare.passage, SB_VERT, bare.topVerse, TRUE);
}

static bool isScrolling = false;

static void OnPassagePaint(HWND window) {
    PAINTSTRUCT paint;
    PaintVerses(BeginPaint(window, &paint), paint.rcPaint, bare.topVerse);
    EndPaint(window, &paint);
    if (!isScrolling) ShowPosition();
}

static void ScrollTo(HWND window, int verse) {
    const int by = bare.lineHeight * (bare.topVerse - verse);
    bare.topVerse = verse;
    isScrolling = true;
    ScrollWindowEx(window, 0, by, nullptr, nullptr, nullptr, nullptr, SW_INVALIDATE | SW_ERASE);
    UpdateWindow(window);
    isScrolling = false;
    static constexpr RECT kPixel{0, 0, 1, 1};
    InvalidateRect(window, &kPixel, FALSE);  // so that the system sends WM_PAINT later
}

static void OnPassageKey(HWND window, UINT key, BOOL, int, UINT) {
    if (key == VK_DOWN) ScrollTo(window, ClampVerse(bare.topVerse + 1));
    if (key == VK_UP) ScrollTo(window, ClampVerse(bare.topVerse - 1));
}

static LRESULT CALLBACK PassageProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        HANDLE_MSG(window, WM_PAINT, OnPassagePaint);
        HANDLE_MSG(window, WM_KEYDOWN, OnPassageKey);
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

// ---- The list -------------------------------------------------------------------------------------------------------

// Every list begins with another verse, so that an onlooker can tell when it has been painted.
static void ShowList() {
    ++bare.listTop;
    ShowStatus(kSummaryPart, "list " + std::to_string(bare.listTop));
    InvalidateRect(bare.list, nullptr, TRUE);
}

// ---- The notes ------------------------------------------------------------------------------------------------------

static void ChooseNoteFont() {
    const LOGFONTA record = FontRecord(Fonts{}.notes, DpiOf(bare.noteView));
    bare.noteFont = CreateFontIndirectA(&record);
    SendMessageA(bare.noteView, WM_SETFONT, reinterpret_cast<WPARAM>(bare.noteFont), FALSE);
}

static TextRoom RoomOfNote() {
    RECT client{};
    GetClientRect(bare.noteView, &client);
    const HDC dc = GetDC(bare.noteView);
    const HGDIOBJ before = SelectObject(dc, bare.noteFont);
    TEXTMETRICA letters{};
    GetTextMetricsA(dc, &letters);
    SelectObject(dc, before);
    ReleaseDC(bare.noteView, dc);
    return {static_cast<std::size_t>(client.bottom / letters.tmHeight + 4),
            static_cast<std::size_t>(client.right / std::max<LONG>(letters.tmAveCharWidth / 2, 1))};
}

// The note of the file and a brief one in turns. Of the first one only what fills the view is given to the control.
static void ShowNextNote() {
    static std::string note;
    static int verse = 0;
    if (bare.noteFont == nullptr) {
        ChooseNoteFont();
        std::ifstream file("bare note.txt", std::ios::binary);
        note.assign(std::istreambuf_iterator<char>(file), {});
    }
    verse = 1 - verse;
    const std::string_view shown = verse == 0 ? "brief" : BeginningOfNote(note, RoomOfNote());
    SetPlainText(bare.noteView, std::u16string(shown.begin(), shown.end()));  // of ASCII letters
    ShowStatus(kNotePart, NameOf(verse));
}

// ---- Commands -------------------------------------------------------------------------------------------------------

static INT_PTR CALLBACK DialogProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_INITDIALOG) return TRUE;
    if (message != WM_COMMAND || (LOWORD(wParam) != IDOK && LOWORD(wParam) != IDCANCEL)) return FALSE;
    EndDialog(dialog, LOWORD(wParam));
    return TRUE;
}

static void OnCommand(HWND frame, int command, HWND, UINT) {
    if (command == IDM_NEXT_NOTE) ShowNextNote();
    if (command != IDM_WORD_SEARCH) return;
    if (DialogBoxParamA(GetModuleHandleA(nullptr), "WORDSEARCH", frame, DialogProcedure, 0) == IDOK) ShowList();
}

// ---- The frame ------------------------------------------------------------------------------------------------------

static INT_PTR CALLBACK SplashProcedure(HWND, UINT message, WPARAM, LPARAM) {
    return message == WM_INITDIALOG;
}

static void ShowSplash(HWND frame) {
    bare.splash = CreateDialogParamA(GetModuleHandleA(nullptr), "SPLASHSCREEN", frame, SplashProcedure, 0);
    ShowWindow(bare.splash, SW_SHOWNA);
    UpdateWindow(bare.splash);
}

static BOOL OnCreate(HWND window, CREATESTRUCTA*) {
    bare.frame = window;
    ShowSplash(window);
    CreateControls();
    const LOGFONTA record = FontRecord(FontChoice{}, DpiOf(window));
    bare.font = CreateFontIndirectA(&record);
    const HDC dc = GetDC(window);
    SelectObject(dc, bare.font);
    TEXTMETRICA metrics{};
    GetTextMetricsA(dc, &metrics);
    bare.lineHeight = static_cast<int>(metrics.tmHeight);
    ReleaseDC(window, dc);
    SetScrollRange(bare.passage, SB_VERT, 0, kLastVerse, FALSE);
    if (!LoadFiles()) return FALSE;
    ShowStatus(kNotePart, NameOf(0));
    ShowStatus(kRangePart, RangeText(bare.scripture.records, 0, kLastVerse));
    return TRUE;
}

static void OnDestroy(HWND) {
    PostQuitMessage(0);
}

static LRESULT CALLBACK FrameProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        HANDLE_MSG(window, WM_CREATE, OnCreate);
        HANDLE_MSG(window, WM_SIZE, OnSize);
        HANDLE_MSG(window, WM_COMMAND, OnCommand);
        HANDLE_MSG(window, WM_DESTROY, OnDestroy);
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

static void RegisterFrame() {
    WNDCLASSA description{};
    description.lpfnWndProc = FrameProcedure;
    description.hInstance = GetModuleHandleA(nullptr);
    description.hIcon = LoadIconA(description.hInstance, "Big_Icon");
    description.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    description.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    description.lpszMenuName = "Menu";
    description.lpszClassName = "BareProgram";
    RegisterClassA(&description);
}

int WINAPI WinMain(HINSTANCE program, HINSTANCE, LPSTR, int showState) {
    InitCommonControls();
    RegisterPaneClass("BarePane", DefWindowProcA, COLOR_WINDOW);
    RegisterPaneClass("BarePassage", PassageProcedure, COLOR_WINDOW);
    RegisterPaneClass("BareList", ListProcedure, COLOR_WINDOW, CS_DBLCLKS);
    RegisterFrame();
    const HWND frame = CreateWindowExA(0, "BareProgram", "", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT,
                                       CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, nullptr, nullptr, program, nullptr);
    if (!frame) return 1;
    ShowWindow(frame, showState);
    UpdateWindow(frame);
    DestroyWindow(bare.splash);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return 0;
}
