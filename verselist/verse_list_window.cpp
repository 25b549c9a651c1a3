#include "verselist/verse_list_window.h"

#include <utility>

#include "notes/note_files_win32.h"
#include "output/format_dialog.h"
#include "pane/status_bar_win32.h"
#include "resources/ids.h"
#include "scripture/scripture_win32.h"
#include "typeset/html_text.h"
#include "verselist/verse_list_copy.h"
#include "verselist/verse_list_flow.h"
#include "verselist/verse_list_menu_win32.h"
#include "win32/controls.h"

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
        .leftMargin = theVerseList.leftMargin,
        .known = &theVerseList.known,
    };
}

static VerseListFlow CurrentFlow() {
    return FlowOf(ClientAreaOf(theVerseList));
}

void RedisplayVerseList() {
    RedisplayPane(theVerseList);
}

void SetVerseListFont(const FontChoice& choice) {
    theVerseList.known = {};
    SetPaneFont(theVerseList, choice);
}

static void SetTop(int entry) {
    theVerseList.list.ListTop = entry;
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

static bool ShowsReferences() {
    return theVerseList.list.currentView == kReferenceListView;
}

static void FillReferenceList() {
    FillLines(theVerseList.references, theVerseList.list);
}

// A hidden list box is filled when it receives its next message (see ReferencesProcedure). So its lines always match
// the list when they are read, but most lists are replaced without the cost of filling it.
void ShowNewEntries(BookForm form) {
    theVerseList.references.form = form;
    theVerseList.told.isStale = true;
    theVerseList.references.awaitsLines = true;
    if (ShowsReferences()) FillReferenceList();
    SetRangeOfScrollBar();
    RedisplayVerseList();
    SendCommand(FrameOf(theVerseList.window), IDM_LIST_CHANGED);
}

HWND ShownListView() {
    return ShowsReferences() ? theVerseList.references.window : theVerseList.window;
}

void SwitchListView(int view) {
    theVerseList.list.currentView = view;
    ShowWindow(ShowsReferences() ? theVerseList.window : theVerseList.references.window, SW_HIDE);
    if (ShowsReferences()) ShowStatus(StatusPart::kListEntry, "");
    ShowWindow(ShownListView(), SW_SHOW);
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
static int VerseOfCaretLine() {
    FillReferenceList();
    return VerseOfEntry(CaretLine(theVerseList.references));
}

static bool HasChosenReference() {
    if (!ShowsReferences()) return false;
    return GetFocus() == theVerseList.references.window || HasMarkedLines(theVerseList.references);
}

int VerseListTargetVerse() {
    if (theVerseList.verseOfRow != kNoVerse) return theVerseList.verseOfRow;
    if (HasChosenReference()) return VerseOfCaretLine();
    return VerseOfEntry(TargetEntry(theVerseList.list, theSelection, GetFocus() == theVerseList.window));
}

static int EntryInView() {
    if (!ShowsReferences()) return CurrentEntry(theVerseList.list, theSelection);
    FillReferenceList();
    return CaretLine(theVerseList.references);
}

int VerseListCurrentVerse() {
    return VerseOfEntry(EntryInView());
}

const EntrySets::Set* VerseListCurrentSet() {
    const int entry = EntryInView();
    return VerseOfEntry(entry) == kNoVerse ? nullptr : SetOfEntry(theVerseList.list, entry);
}

std::vector<std::int32_t> MarkedVerses() {
    std::vector<std::int32_t> verses;
    for (const int line : MarkedLines(theVerseList.references)) verses.push_back(VerseOfEntry(line));
    return verses;
}

// ---- Deleting -------------------------------------------------------------------------------------------------------

static void RefreshFrame() {
    SendCommand(FrameOf(theVerseList.window), IDM_REFRESH);
}

// Makes Copy use the marked lines of the Reference List while it has the focus.
static void FollowMarkedLines(bool focused) {
    const int ownerBefore = theSelection.SelectionOwner;
    const bool owns = focused && HasMarkedLines(theVerseList.references);
    if (focused || ownerBefore == kReferenceListOwns) DropSelection();
    if (owns) theSelection.SelectionOwner = kReferenceListOwns;
    if (theSelection.SelectionOwner != ownerBefore) RefreshFrame();
}

// Entries have gone or come; `place` is that of the first of them.
static void ShowChangedEntries(int place, int topLine) {
    theVerseList.told.isStale = true;
    if (ShowsReferences()) {
        FillReferenceList();
        ShowLine(theVerseList.references, place, topLine);
    }
    DropSelection();
    FollowMarkedLines(GetFocus() == theVerseList.references.window);
    ShowStatus(StatusPart::kListEntry, "");
    SetRangeOfScrollBar();
    RedisplayVerseList();
    SendCommand(FrameOf(theVerseList.window), IDM_LIST_CHANGED);
    RefreshFrame();
}

static void Delete(const std::vector<int>& places) {
    if (places.empty() || ListCount(theVerseList.list) == 0) return;
    const int topLine = TopLine(theVerseList.references);
    DeleteEntries(theVerseList.list, places, StatusText(StatusPart::kSearchSummary));
    RemoveLines(theVerseList.references, places);
    ShowStatus(StatusPart::kSearchSummary, "");
    ShowChangedEntries(places.front(), topLine);
}

void DropEntries(const std::vector<int>& places) {
    if (places.empty()) return;
    Delete(places);
    theVerseList.list.deletions.clear();
    RefreshFrame();
}

bool CanRestoreEntries() {
    return GetFocus() == ShownListView() && !theVerseList.list.deletions.empty();
}

void RestoreDeletedEntries() {
    const int topLine = TopLine(theVerseList.references);
    const Deletion restored = RestoreEntries(theVerseList.list);
    InsertLines(theVerseList.references, theVerseList.list, restored.entries);
    if (StatusText(StatusPart::kSearchSummary).empty()) ShowStatus(StatusPart::kSearchSummary, restored.summary);
    ShowChangedEntries(restored.entries.front().place, topLine);
}

// ---- The pane -------------------------------------------------------------------------------------------------------

// Whether the entry is another one, the frame finds out.
static void TellEntry() {
    if (theVerseList.isOfNotes) SendCommand(FrameOf(theVerseList.window), IDM_FOLLOW_LIST);
}

static bool HasText() {
    return ListCount(theVerseList.list) > 0 && HasFaces(theVerseList.faces);
}

static void ShowPosition() {
    const VerseList& list = theVerseList.list;
    const int verse = list.ListEntries[static_cast<std::size_t>(list.ListTop)];
    ShowStatus(StatusPart::kListEntry, ReferenceText(theScripture.records, verse, BookForm::kName));
    MoveScrollBox(theVerseList, list.ListTop);
    TellEntry();
}

static void LayOutText(const RECT& client) {
    VerseList& list = theVerseList.list;
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

static std::string HtmlOfSelection() {
    const bool keepBrackets = theFormat.Brackets != 0;
    return HtmlOfVerses(
        VerseListCopyText(theScripture, theVerseList.list, keepBrackets, theSelection, CopyMarks::kMarked),
        keepBrackets ? HtmlBrackets::kShown : HtmlBrackets::kAsItalics);
}

// ---- Screen readers -------------------------------------------------------------------------------------------------

static std::string NameOfPane() {
    return SpokenListName(theVerseList.list);
}

static int CountOfEntries() {
    return HasText() ? ListCount(theVerseList.list) : 0;
}

static int EntryWithFocus() {
    return TargetEntry(theVerseList.list, theSelection, true);
}

static SpokenItems ShownEntries() {
    const VerseListFlow flow = CurrentFlow();
    SpokenItems shown{flow.width, flow.height, LineHeightOf(flow.measure), {}};
    WalkVerseList(flow, ItemsVisitor(shown));
    return shown;
}

static SpokenWords WordsOf(int entry) {
    VerseListFlow flow = CurrentFlow();
    const VerseList only = EntryAlone(theVerseList.list, entry);
    flow.list = &only;
    flow.height = kEndlessHeight;
    SpokenWords words;
    WalkVerseList(flow, WordsVisitor(words));
    return words;
}

static void BringUp(int entry) {
    SetTop(entry);
    RedisplayVerseList();
}

// ---- The context menu -----------------------------------------------------------------------------------------------

static void OpenMenu(POINT onScreen) {
    const int verse = VerseListCurrentVerse();
    if (verse != kNoVerse) OpenPopupMenu(theVerseList.window, onScreen, VerseListMenu(verse));
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
        case IDM_DELETE_ENTRY: Delete({CurrentEntry(theVerseList.list, theSelection)}); break;
        case IDM_CONTEXT:
        case IDM_NOTE_FOR_LIST: SendForRow(command); break;
        case IDM_COPY_VERSE_LIST:
        case IDM_SAVE_VERSE_LIST:
        case IDM_PRINT_VERSE_LIST:
        case IDM_COPY_HITS: SendCommand(FrameOf(theVerseList.window), command); break;
    }
}

static void OnDoubleClick() {
    SendCommand(FrameOf(theVerseList.window), IDM_CONTEXT);
}

static const PaneKind kVerseList = {
    .pane = theVerseList,
    .selected = {kVerseListOwns, TextOfSelection, HtmlOfSelection},
    .hasText = HasText,
    .layOut = LayOutText,
    .top = Top,
    .scrolledTop = ScrolledTop,
    .clampItem = ClampItem,
    .pointAt = PointAt,
    .setTop = SetTop,
    .showPosition = ShowPosition,
    .onCreate = OnCreate,
    .onKey = OnKey,
    .onDoubleClick = OnDoubleClick,
    .onCommand = OnCommand,
    .openMenu = OpenMenu,
    .spoken =
        {
            .window = theVerseList.window,
            .told = theVerseList.told,
            .owner = kVerseListOwns,
            .itemRole = ROLE_SYSTEM_LISTITEM,
            .action = L"Read Context",
            .name = NameOfPane,
            .count = CountOfEntries,
            .top = Top,
            .current = EntryWithFocus,
            .verseOf = VerseOfEntry,
            .shown = ShownEntries,
            .words = WordsOf,
            .bringUp = BringUp,
            .act = OnDoubleClick,
        },
};

static LRESULT CALLBACK VerseListProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_LBUTTONDOWN && GetFocus() == window) theVerseList.followed.verse = kNoVerse;
    return ReadingPaneProcedure(kVerseList, window, message, wParam, lParam);
}

// ---- The Reference List ---------------------------------------------------------------------------------------------

static void OpenReferencesMenu(int x, int y) {
    const HWND box = theVerseList.references.window;
    if (GetFocus() != box) SetFocus(box);
    const int verse = VerseOfCaretLine();
    if (verse != kNoVerse) OpenPopupMenu(box, FromCornerOf(box, x, y), VerseListMenu(verse));
}

static void OnReferencesCommand(int command) {
    switch (command) {
        case IDM_DELETE_ENTRY: Delete({CaretLine(theVerseList.references)}); break;
        case IDM_COPY: SendCommand(FrameOf(theVerseList.window), command); break;
        default: OnCommand(command);
    }
}

// Returns whether the key was handled here.
static bool OnReferencesKey(WPARAM key) {
    const HWND frame = FrameOf(theVerseList.window);
    const bool alone = !IsKeyDown(VK_CONTROL) && !IsKeyDown(VK_SHIFT);
    switch (key) {
        case VK_RETURN: SendCommand(frame, IDM_READ_ENTRY); return false;
        case VK_DELETE: Delete(MarkedLines(theVerseList.references)); return true;
        case VK_RIGHT:
            if (alone) SendCommand(frame, IDM_FOCUS_PASSAGE);
            return alone;
    }
    return false;
}

static bool MayChangeMarks(UINT message) {
    switch (message) {
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
        case WM_KEYDOWN:
        case WM_CHAR:
        case WM_LBUTTONDOWN:
        case WM_LBUTTONUP:
        case LB_SETSEL:
        case LB_SELITEMRANGE:
        case LB_SELITEMRANGEEX: return true;
    }
    return false;
}

// Not for getting another size, which would make every resize after a search as slow as filling the hidden box.
static bool NeedsLines(UINT message) {
    switch (message) {
        case WM_WINDOWPOSCHANGING:
        case WM_NCCALCSIZE:
        case WM_WINDOWPOSCHANGED:
        case WM_MOVE:
        case WM_SIZE:
        case WM_DESTROY:
        case WM_NCDESTROY: return false;
    }
    return true;
}

// The caret may have come to another line. The system sends WM_PAINT when no more keys wait.
static void AwaitPaint(HWND box) {
    static constexpr RECT kPixel{0, 0, 1, 1};
    if (theVerseList.isOfNotes) InvalidateRect(box, &kPixel, FALSE);
}

static LRESULT CALLBACK ReferencesProcedure(HWND box, UINT message, WPARAM wParam, LPARAM lParam) {
    if (NeedsLines(message)) FillReferenceList();
    if (message == WM_LBUTTONDOWN) theVerseList.followed.verse = kNoVerse;
    switch (message) {
        case WM_KEYDOWN:
            if (OnReferencesKey(wParam)) return 0;
            break;
        case WM_RBUTTONUP: return OpenReferencesMenu(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)), 0;
        case WM_CONTEXTMENU:
            if (!IsMenuByKey(LOWORD(lParam), HIWORD(lParam))) break;
            return OpenReferencesMenu(OffsetOfKeyMenu(box), OffsetOfKeyMenu(box)), 0;
        case WM_COMMAND: return OnReferencesCommand(LOWORD(wParam)), 0;
    }
    const LRESULT result = PassToBox(theVerseList.references, message, wParam, lParam);
    if (MayChangeMarks(message)) {
        FollowMarkedLines(message != WM_KILLFOCUS && GetFocus() == box);
        AwaitPaint(box);
    }
    if (message == WM_PAINT) TellEntry();
    if (message == WM_SETFOCUS || message == WM_KILLFOCUS) RefreshFrame();
    return result;
}

bool RegisterVerseListClass() {
    return RegisterPaneClass(kVerseListClass, VerseListProcedure, COLOR_WINDOW, CS_DBLCLKS);
}

void CreateVerseList(HWND tabs) {
    CreateChild(tabs, kVerseListClass, "Verse List", WS_VISIBLE | WS_VSCROLL | WS_TABSTOP, WS_EX_CLIENTEDGE,
                IDC_VERSE_LIST);
    CreateReferenceList(theVerseList.references, tabs, ReferencesProcedure);
}
