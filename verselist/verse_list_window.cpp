#include "verselist/verse_list_window.h"

#include <algorithm>
#include <array>
#include <utility>

#include "notes/note_editor_window.h"
#include "notes/note_files_win32.h"
#include "output/format_dialog.h"
#include "pane/status_bar_win32.h"
#include "resources/ids.h"
#include "scripture/scripture_win32.h"
#include "verselist/verse_list_copy.h"
#include "verselist/verse_list_flow.h"
#include "win32/controls.h"
#include "win32/popup_menu.h"
#include "win32/screen.h"

static constexpr char kVerseListClass[] = "VERSELIST";

VerseListPane theVerseList;

static VerseListFlow FlowOf(const RECT& client) {
    return {
        .scripture = &theScripture,
        .noteFiles = &TheNoteFiles(),
        .notes = &theNoteSets,
        .query = &theVerseList.query,
        .options = theReading,
        .measure = MeasureOf(theVerseList.faces),
        .list = &theVerseList.list,
        .width = client.right,
        .height = client.bottom,
    };
}

static VerseListFlow CurrentFlow() {
    return FlowOf(ClientAreaOf(theVerseList));
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

// ---- The two views --------------------------------------------------------------------------------------------------

// Lines are sent to the list box's own window procedure, as wide text, which is what the box stores. Going through
// ReferencesProcedure with a conversion takes half as long again, a noticeable delay with the 24,091 lines of "the".
// References are plain ASCII. The procedure was obtained with GetWindowLongPtrW, so the system converts the text if the
// box expects 8-bit text.
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

// A hidden list box is filled when it receives its next message (see ReferencesProcedure). So its lines always match
// the list when they are read, but most lists are replaced without the cost of filling it.
static void ShowWholeList(BookForm form = BookForm::kName) {
    theVerseList.awaitedLines = form;
    if (theVerseList.list.currentView == kReferenceListView) FillReferenceList();
    SetRangeOfScrollBar();
    RedisplayVerseList();
}

void ShowSearchResult(Query query, std::vector<std::int32_t> verses) {
    theVerseList.query = std::move(query);
    FillVerseList(theVerseList.list, std::move(verses));
    ShowWholeList();
    FocusVerseList();
}

void ShowReferences(const std::vector<std::int32_t>& verses) {
    theVerseList.query = {};
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
    if (references) ShowStatus(theVerseList.window, StatusPart::kListEntry, "");
    ShowWindow(references ? theVerseList.references : theVerseList.window, SW_SHOW);
}

HWND ShownListView() {
    return theVerseList.list.currentView == kReferenceListView ? theVerseList.references : theVerseList.window;
}

void FocusVerseList() {
    SetFocus(ShownListView());
}

void ShowVerseListAtOnce() {
    ShowAtOnce(ShownListView());
}

static int VerseOfEntry(int entry) {
    const std::vector<std::int32_t>& entries = theVerseList.list.ListEntries;
    return entry >= 0 && entry < ListCount(theVerseList.list) ? entries[static_cast<std::size_t>(entry)] : kNoVerse;
}

// A line of the Reference List has the same index as its entry in the Verse List.
static int LineOfReferenceList() {
    return static_cast<int>(SendMessageA(theVerseList.references, LB_GETCARETINDEX, 0, 0));
}

static bool HasChosenReference() {
    return theVerseList.list.currentView == kReferenceListView &&
           SendMessageA(theVerseList.references, LB_GETSELCOUNT, 0, 0) > 0;
}

int VerseListTargetVerse() {
    if (theVerseList.verseOfRow != kNoVerse) return theVerseList.verseOfRow;
    if (HasChosenReference()) return VerseOfEntry(LineOfReferenceList());
    return VerseOfEntry(TargetEntry(theVerseList.list, theSelection, GetFocus() == theVerseList.window));
}

int VerseListCurrentVerse() {
    if (theVerseList.list.currentView == kReferenceListView) return VerseOfEntry(LineOfReferenceList());
    return VerseOfEntry(CurrentEntry(theVerseList.list, theSelection));
}

static void DeleteCurrentEntry() {
    VerseList& list = theVerseList.list;
    if (ListCount(list) == 0) return;
    const int entry = CurrentEntry(list, theSelection);
    // Deleted from the list box first: this message may fill the box, which then still needs all entries.
    SendMessageA(theVerseList.references, LB_DELETESTRING, static_cast<WPARAM>(entry), 0);
    DeleteEntry(list, entry);
    DropSelection();
    ShowStatus(theVerseList.window, StatusPart::kSearchSummary, "");
    ShowStatus(theVerseList.window, StatusPart::kListEntry, "");
    SetRangeOfScrollBar();
    RedisplayVerseList();
    SendCommand(FrameOf(theVerseList.window), IDM_REFRESH);
}

// ---- The pane -------------------------------------------------------------------------------------------------------

static bool HasText() {
    return ListCount(theVerseList.list) > 0 && HasFaces(theVerseList.faces);
}

static void ShowPosition() {
    const VerseList& list = theVerseList.list;
    const int verse = list.ListEntries[static_cast<std::size_t>(list.ListTop)];
    ShowStatus(theVerseList.window, StatusPart::kListEntry,
               ReferenceText(theScripture.records, verse, BookForm::kName));
    MoveScrollBox(theVerseList, list.ListTop);
}

static void LayOutText(const RECT& client) {
    VerseList& list = theVerseList.list;
    ShowPosition();
    list.ListLastVisible = WalkVerseList(FlowOf(client), RunsVisitor(theVerseList, kVerseListOwns));
    CorrectLastVisible(list);
}

static int Top() {
    return theVerseList.list.ListTop;
}

static int ScrolledTop(ScrollCode code, int thumb) {
    return ScrolledListTop(CurrentFlow(), theVerseList.list, code, thumb);
}

static int ClampItem(int entry) {
    return ClampEntry(theVerseList.list, entry);
}

static SelectionPoint PointAt(int x, int y) {
    return HitTestVerseList(CurrentFlow(), x, y);
}

static std::string TextOfSelection() {
    return VerseListCopyText(theScripture, theVerseList.list, theFormat.Brackets != 0, theSelection);
}

// "F10" in the row of the note is kept on purpose, although the key is F9. Enter and Delete work only in this pane.
static std::vector<MenuRow> Rows(const std::string& verse) {
    const bool noSelection = theSelection.SelectionOwner != kVerseListOwns;
    const bool editing = IsEditingNote();
    return {
        {IDM_COPY, "Copy Selected Text\t", noSelection},
        {IDM_COPY_VERSE_LIST, "Copy Verse List\t"},
        {IDM_SAVE_VERSE_LIST, "Save Verse List..."},
        {IDM_PRINT_VERSE_LIST, "Print Verse List..."},
        {},
        {IDM_CONTEXT, "Read Context of " + verse + "\tEnter"},
        {},
        {IDM_DELETE_ENTRY, "Delete " + verse + " From List\tDelete"},
        {},
        {IDM_NOTE_FOR_LIST, "Go to Note (" + verse + ")\tF10", editing},
        {},
        {IDM_WORD_SEARCH, "Word Search with Selected Text...", noSelection},
        {IDM_PHRASE_SEARCH, "Phrase Search with Selected Text...", noSelection},
        {IDM_SEARCH_NOTES, "Search Notes with Selected Text...", noSelection},
    };
}

static void OpenMenu(POINT onScreen) {
    const int verse = VerseListCurrentVerse();
    if (verse == kNoVerse) return;
    OpenPopupMenu(theVerseList.window, onScreen,
                  Rows(ReferenceText(theScripture.records, verse, BookForm::kAbbreviation)));
}

// By their keys, the same commands take the first selected entry, which after a drag upwards is not the one that the
// rows name.
static void SendForRow(int command) {
    theVerseList.verseOfRow = VerseListCurrentVerse();
    SendCommand(FrameOf(theVerseList.window), command);
    theVerseList.verseOfRow = kNoVerse;
}

// ---- The window -----------------------------------------------------------------------------------------------------

static void OnCreate(HWND) {
    SetRangeOfScrollBar();
}

static void OnKey(const PaneKind& kind, UINT key) {
    const HWND frame = FrameOf(theVerseList.window);
    switch (key) {
        case VK_RETURN: SendCommand(frame, IDM_READ_ENTRY); break;
        case VK_END: ScrollPane(kind, ScrollCode::kThumb, ListCount(theVerseList.list) - 1); break;
        case VK_HOME: ScrollPane(kind, ScrollCode::kThumb, 0); break;
        case VK_RIGHT: SendCommand(frame, IDM_FOCUS_PASSAGE); break;
        case VK_DELETE: SendCommand(theVerseList.window, IDM_DELETE_ENTRY); break;
    }
}

static void OnCommand(int command) {
    switch (command) {
        case IDM_DELETE_ENTRY: DeleteCurrentEntry(); break;
        case IDM_CONTEXT:
        case IDM_NOTE_FOR_LIST: SendForRow(command); break;
        case IDM_COPY_VERSE_LIST:
        case IDM_SAVE_VERSE_LIST:
        case IDM_PRINT_VERSE_LIST: SendCommand(FrameOf(theVerseList.window), command); break;
    }
}

static void OnDoubleClick() {
    SendCommand(FrameOf(theVerseList.window), IDM_CONTEXT);
}

static constexpr PaneKind kVerseList = {
    .pane = theVerseList,
    .selected = {kVerseListOwns, TextOfSelection},
    .hasText = HasText,
    .layOut = LayOutText,
    .top = Top,
    .scrolledTop = ScrolledTop,
    .clampItem = ClampItem,
    .pointAt = PointAt,
    .setTop = SetTop,
    .onCreate = OnCreate,
    .onKey = OnKey,
    .onDoubleClick = OnDoubleClick,
    .onCommand = OnCommand,
    .openMenu = OpenMenu,
};

static LRESULT CALLBACK VerseListProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return ReadingPaneProcedure(kVerseList, window, message, wParam, lParam);
}

static LRESULT CALLBACK ReferencesProcedure(HWND box, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_DESTROY && message != WM_NCDESTROY) FillReferenceList();
    if (message == WM_KEYDOWN && wParam == VK_RETURN) SendCommand(FrameOf(box), IDM_READ_ENTRY);
    return CallWindowProcA(theVerseList.referencesProcedure, box, message, wParam, lParam);
}

bool RegisterVerseListClass() {
    return RegisterPaneClass(kVerseListClass, VerseListProcedure, COLOR_WINDOW, CS_DBLCLKS);
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
