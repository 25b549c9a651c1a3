#include "verselist/verselist_window.h"

#include <algorithm>
#include <array>
#include <utility>

#include "notes/notes_window.h"
#include "output/label_text.h"
#include "output/output_win32.h"
#include "output/selection_commands_win32.h"
#include "passage/passage_window.h"
#include "resources/ids.h"
#include "scripture/scripture_win32.h"
#include "search/search_win32.h"
#include "verselist/verse_list_copy.h"
#include "verselist/verse_list_menu_win32.h"
#include "win32/controls.h"
#include "win32/panes.h"
#include "win32/popup_menu.h"
#include "win32/screen.h"

VerseListPane theVerseList;

static constexpr int kSummaryPart = 0;  // of the status bar
static constexpr int kEntryPart = 1;

static VerseListFlow FlowOf(const RECT& client) {
    return {
        .scripture = &theScripture,
        .noteFiles = &TheNoteFiles(),
        .notes = &theNotes.sets,
        .keyWords = &theVerseList.keyWords,
        .options = theReading,
        .measure = MeasureOf(theVerseList.faces),
        .list = &theVerseList.list,
        .width = client.right,
        .height = client.bottom,
    };
}

static VerseListFlow CurrentFlow() {
    RECT client{};
    GetClientRect(theVerseList.window, &client);
    return FlowOf(client);
}

static bool HasEntries() {
    return ListCount(theVerseList.list) > 0;
}

static void SetStatus(int part, const std::string& text) {
    SetStatusPart(GetDlgItem(FrameOf(theVerseList.window), IDC_STATUS_BAR), part, text);
}

void RedisplayVerseList() {
    RedisplayPane(theVerseList);
}

void SetVerseListFont(const FontChoice& choice) {
    ChooseFaces(theVerseList.faces, choice);
    RedisplayVerseList();
}

static void SetTop(int entry) {
    theVerseList.list.ListTop = entry;
    RedisplayVerseList();
}

static void SetRangeOfScrollBar() {
    const int count = ListCount(theVerseList.list);
    SCROLLINFO range{};
    range.cbSize = sizeof range;
    range.fMask = SIF_RANGE | SIF_PAGE | SIF_POS | SIF_DISABLENOSCROLL;
    range.nMax = count > 0 ? count - 1 : 0;
    range.nPage = 1;
    range.nPos = theVerseList.list.ListTop;
    SetScrollInfo(theVerseList.window, SB_VERT, &range, TRUE);
}

// The two views.

// Lines go straight to the box's own procedure and wide, as the box keeps them: the way through our procedure, with a
// conversion in it, takes half as long again, which is felt with the 24,091 lines of "the". A reference is plain ASCII.
// The procedure was asked for as a wide one, so the system converts wherever the box wants it otherwise.
static void AddReferenceLine(HWND box, int verse, BookForm form) {
    LabelText line;
    AppendReference(line, RecordOf(theScripture.records, verse), form);
    std::array<wchar_t, std::tuple_size_v<decltype(line.bytes)> + 1> wide{};
    std::ranges::copy(TextOf(line), wide.begin());
    CallWindowProcW(theVerseList.referencesWideProcedure, box, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(wide.data()));
}

static void FillReferenceList() {
    if (!theVerseList.awaitedLines) return;
    const BookForm form = *std::exchange(theVerseList.awaitedLines, std::nullopt);
    const HWND box = theVerseList.references;
    SendMessageA(box, WM_SETREDRAW, FALSE, 0);
    SendMessageA(box, LB_RESETCONTENT, 0, 0);
    const std::vector<std::int32_t>& entries = theVerseList.list.ListEntries;
    static constexpr WPARAM kBytesALine = 32;
    SendMessageA(box, LB_INITSTORAGE, entries.size(), static_cast<LPARAM>(entries.size() * kBytesALine));
    for (const int verse : entries) AddReferenceLine(box, verse, form);
    SendMessageA(box, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(box, nullptr, TRUE);
}

// A box that is not shown gets its lines with the next message that it is sent: whoever asks finds both views in step,
// and most lists are left before anybody asks.
static void ShowWholeList(BookForm form = BookForm::kName) {
    theVerseList.awaitedLines = form;
    if (theVerseList.list.currentView == kReferenceListView) FillReferenceList();
    SetRangeOfScrollBar();
    RedisplayVerseList();
}

void ShowSearchResult() {
    theVerseList.keyWords = KeyWordsOf(theSearch);
    FillVerseList(theVerseList.list, theSearch.result.verses);
    ShowWholeList();
    FocusVerseList();
}

void ShowReferences(const std::vector<std::int32_t>& verses) {
    theVerseList.keyWords = {};
    FillWithReferences(theVerseList.list, verses);
    ShowWholeList(BookForm::kAbbreviation);
}

void EmptyVerseList() {
    ClearVerseList(theVerseList.list);
    ShowWholeList();
}

void SwitchListView(int view) {
    theVerseList.list.currentView = view;
    const bool references = view == kReferenceListView;
    ShowWindow(references ? theVerseList.window : theVerseList.references, SW_HIDE);
    if (references) SetStatus(kEntryPart, "");
    ShowWindow(references ? theVerseList.references : theVerseList.window, SW_SHOW);
}

static HWND VisibleView() {
    return theVerseList.list.currentView == kReferenceListView ? theVerseList.references : theVerseList.window;
}

void FocusVerseList() {
    SetFocus(VisibleView());
}

void ShowVerseListAtOnce() {
    ShowAtOnce(VisibleView());
}

static int VerseOfEntry(int entry) {
    const std::vector<std::int32_t>& entries = theVerseList.list.ListEntries;
    return entry >= 0 && entry < ListCount(theVerseList.list) ? entries[static_cast<std::size_t>(entry)] : kNoVerse;
}

// The two views are in step: a line of the Reference List is the entry of the same number.
static int LineOfReferenceList() {
    return static_cast<int>(SendMessageA(theVerseList.references, LB_GETCARETINDEX, 0, 0));
}

static bool HasChosenReference() {
    return theVerseList.list.currentView == kReferenceListView &&
           SendMessageA(theVerseList.references, LB_GETSELCOUNT, 0, 0) > 0;
}

int VerseListTargetVerse() {
    if (HasChosenReference()) return VerseOfEntry(LineOfReferenceList());
    return VerseOfEntry(TargetEntry(theVerseList.list, theSelection, GetFocus() == theVerseList.window));
}

void ReadContext() {
    const int verse = theVerseList.list.currentView == kReferenceListView
                          ? VerseOfEntry(LineOfReferenceList())
                          : VerseOfEntry(CurrentEntry(theVerseList.list, theSelection));
    if (verse != kNoVerse) ScrollToVerse(verse);
}

static void DeleteCurrentEntry() {
    VerseList& list = theVerseList.list;
    if (!HasEntries()) return;
    const int entry = CurrentEntry(list, theSelection);
    // First from the box, which may only now get the lines of all entries.
    SendMessageA(theVerseList.references, LB_DELETESTRING, static_cast<WPARAM>(entry), 0);
    DeleteEntry(list, entry);
    theSearch.result.occurrenceCount = 0;  // it counted the list as the search left it
    DropSelection();
    SetStatus(kSummaryPart, "");
    SetStatus(kEntryPart, "");
    SetRangeOfScrollBar();
    RedisplayVerseList();
    SendCommand(FrameOf(theVerseList.window), IDM_REFRESH);
}

// Painting.

static TextColor ColorOf(const OrderedSelection& selection, const ListBoxPiece& piece) {
    if (theSelection.SelectionOwner == kVerseListOwns && IsSelected(selection, piece.point)) {
        return TextColor::kSelected;
    }
    return piece.keyWord ? TextColor::kKeyWord : TextColor::kNormal;
}

static void LayOutRuns(const RECT& client) {
    const OrderedSelection selection = Ordered(theSelection);
    VerseList& list = theVerseList.list;
    const ListFlowEnd end = WalkVerseList(FlowOf(client), [&selection](const ListBoxPiece& piece) {
        AddText(theVerseList.runs, theVerseList.faces, piece.face, ColorOf(selection, piece), piece.x, piece.y,
                piece.width, piece.text);
        return true;
    });
    list.ListLastVisible = end.lastEntry;
    list.LineHeight = end.lineHeight;
    CorrectLastVisible(list);
    theSearch.result.occurrenceCount += end.occurrences;
}

static void ShowPosition(HWND window) {
    const VerseList& list = theVerseList.list;
    const int verse = list.ListEntries[static_cast<std::size_t>(list.ListTop)];
    SetStatus(kEntryPart, ReferenceText(theScripture.records, verse, BookForm::kName));
    if (GetScrollPos(window, SB_VERT) != list.ListTop) SetScrollPos(window, SB_VERT, list.ListTop, TRUE);
}

static void LayOutAndShowPosition(const RECT& client) {
    ShowPosition(theVerseList.window);
    LayOutRuns(client);
}

static void OnPaint(HWND window) {
    const bool hasText = HasEntries() && HasFaces(theVerseList.faces);
    PaintPane(theVerseList, theReading.KeyHighlightColor, hasText ? LayOutAndShowPosition : nullptr);
    SendCommand(FrameOf(window), IDM_MARK_NOTE_SETS);
}

// Scrolling, keys and focus.

static void Scroll(ScrollCode code, int thumb) {
    if (!HasEntries()) return;
    const int top = ScrolledListTop(CurrentFlow(), theVerseList.list, code, thumb);
    if (top == theVerseList.list.ListTop) return;
    SetTop(top);
    UpdateWindow(theVerseList.window);  // the next step goes by what this one shows
}

static void GoToEntry(int entry) {
    Scroll(ScrollCode::kThumb, entry);
}

static void OnVScroll(HWND, HWND, UINT code, int thumb) {
    if (const auto scroll = ScrollOfBar(code)) Scroll(*scroll, thumb);
}

static void OnMouseWheel(HWND, int, int, int delta, UINT) {
    TurnWheel(theVerseList, delta, theVerseList.list.ListTop, Scroll);
}

static void OnKeyDown(HWND window, UINT key, BOOL, int, UINT) {
    if (const auto scroll = ScrollOfKey(key)) return Scroll(*scroll, 0);
    switch (key) {
        case VK_RETURN: ReadContext(); break;
        case VK_END: GoToEntry(ListCount(theVerseList.list) - 1); break;
        case VK_HOME: GoToEntry(0); break;
        case VK_RIGHT: SetFocus(thePassage.window); break;
        case VK_DELETE: SendCommand(window, IDM_DELETE_ENTRY); break;
    }
}

static void OnSetFocus(HWND, HWND before) {
    PaneGotFocus(theVerseList, kVerseListOwns, before);
}

static void OnKillFocus(HWND, HWND) {
    PaneLostFocus(theVerseList);
}

// The selection of words.

static SelectionPoint PointAt(int x, int y) {
    return HasEntries() && HasFaces(theVerseList.faces) ? HitTestVerseList(CurrentFlow(), x, y) : SelectionPoint{};
}

static void StepTop(int by) {
    const int top = ClampEntry(theVerseList.list, theVerseList.list.ListTop + by);
    if (top != theVerseList.list.ListTop) SetTop(top);
}

static constexpr PaneSelecting kSelecting = {kVerseListOwns, PointAt, StepTop};

static void OnLButtonDown(HWND, BOOL, int x, int y, UINT) {
    PressMouse(theVerseList, kSelecting, x, y);
}

static void OnMouseMove(HWND, int x, int y, UINT keys) {
    DragMouse(theVerseList, kSelecting, x, y, keys);
}

static void OnLButtonUp(HWND, int, int, UINT) {
    ReleaseMouse(theVerseList);
}

static std::string TextOfSelection() {
    return VerseListCopyText(theScripture, theVerseList.list, theFormat.Brackets != 0, theSelection);
}

static void OpenMenu(int x, int y) {
    OpenVerseListMenu(FromCornerOf(theVerseList.window, x, y));
}

static void OnRButtonUp(HWND, int x, int y, UINT) {
    FocusPane(theVerseList);
    OpenMenu(x, y);
}

static void OnContextMenu(HWND window, HWND under, UINT x, UINT y) {
    if (IsMenuByKey(x, y)) return OpenMenu(kKeyMenuOffset, kKeyMenuOffset);
    FORWARD_WM_CONTEXTMENU(window, under, x, y, DefWindowProcA);
}

static void OnCommand(HWND window, int command, HWND, UINT) {
    if (RunSelectionCommand(window, {kVerseListOwns, TextOfSelection}, command)) return;
    switch (command) {
        case IDM_DELETE_ENTRY: DeleteCurrentEntry(); break;
        case IDM_CONTEXT:
        case IDM_COPY_VERSE_LIST:
        case IDM_SAVE_VERSE_LIST:
        case IDM_PRINT_VERSE_LIST:
        case IDM_NOTE_FOR_LIST: SendCommand(FrameOf(window), command); break;
    }
}

static BOOL OnCreate(HWND window, CREATESTRUCTA*) {
    theVerseList.window = window;
    SetRangeOfScrollBar();
    return TRUE;
}

static LRESULT CALLBACK VerseListProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        HANDLE_MSG(window, WM_CREATE, OnCreate);
        HANDLE_MSG(window, WM_SETFOCUS, OnSetFocus);
        HANDLE_MSG(window, WM_KILLFOCUS, OnKillFocus);
        HANDLE_MSG(window, WM_PAINT, OnPaint);
        HANDLE_MSG(window, WM_KEYDOWN, OnKeyDown);
        HANDLE_MSG(window, WM_VSCROLL, OnVScroll);
        HANDLE_MSG(window, WM_MOUSEWHEEL, OnMouseWheel);
        HANDLE_MSG(window, WM_LBUTTONDOWN, OnLButtonDown);
        HANDLE_MSG(window, WM_MOUSEMOVE, OnMouseMove);
        HANDLE_MSG(window, WM_LBUTTONUP, OnLButtonUp);
        HANDLE_MSG(window, WM_COMMAND, OnCommand);
        HANDLE_MSG(window, WM_RBUTTONUP, OnRButtonUp);
        HANDLE_MSG(window, WM_CONTEXTMENU, OnContextMenu);
        case WM_CAPTURECHANGED: return ReleaseMouse(theVerseList), 0;
        case WM_ERASEBKGND: return TRUE;  // the paint covers all of the pane
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

static LRESULT CALLBACK ReferencesProcedure(HWND box, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_DESTROY && message != WM_NCDESTROY) FillReferenceList();
    if (message == WM_KEYDOWN && wParam == VK_RETURN) ReadContext();
    return CallWindowProcA(theVerseList.referencesProcedure, box, message, wParam, lParam);
}

bool RegisterVerseListClass() {
    return RegisterPaneClass(kVerseListClass, VerseListProcedure, COLOR_WINDOW);
}

void CreateVerseList(HWND tabs) {
    CreateChild(tabs, kVerseListClass, "", WS_VISIBLE | WS_VSCROLL | WS_TABSTOP, WS_EX_CLIENTEDGE, IDC_VERSE_LIST);
    theVerseList.references =
        CreateChild(tabs, "LISTBOX", "",
                    WS_VSCROLL | WS_TABSTOP | LBS_NOTIFY | LBS_MULTIPLESEL | LBS_EXTENDEDSEL | LBS_NOINTEGRALHEIGHT,
                    WS_EX_CLIENTEDGE, IDC_REFERENCE_LIST);
    SendMessageA(theVerseList.references, WM_SETFONT, reinterpret_cast<WPARAM>(MessageFont()), FALSE);
    theVerseList.referencesWideProcedure =
        reinterpret_cast<WNDPROC>(GetWindowLongPtrW(theVerseList.references, GWLP_WNDPROC));
    theVerseList.referencesProcedure = Subclass(theVerseList.references, ReferencesProcedure);
}
