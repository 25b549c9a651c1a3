#include "verselist/hits_strip_window.h"

#include <utility>

#include "pane/pane_look_win32.h"
#include "pane/selection_win32.h"
#include "resources/ids.h"
#include "scripture/scripture_win32.h"
#include "verselist/hits_painting_win32.h"
#include "verselist/list_content_win32.h"
#include "verselist/verse_list_window.h"
#include "win32/accessible_object.h"
#include "win32/controls.h"
#include "win32/dpi.h"
#include "win32/popup_menu.h"

static constexpr char kHitsStripClass[] = "HITSBYBOOK";

HitsStrip theHitsStrip;

// ---- What it shows --------------------------------------------------------------------------------------------------

PerBook<HitsOfBook> HitsOfList(bool* hasReadTexts) {
    const std::vector<std::int32_t>& entries = theVerseList.list.ListEntries;
    const bool counts = !entries.empty() && theHitsStrip.words.front() == 0;
    if (counts) theHitsStrip.words = CountWordsOfBooks(theScripture);
    if (hasReadTexts) *hasReadTexts = counts;
    return HitsOfEntries(theScripture.records, entries, theHitsStrip.words);
}

static RECT ClientArea() {
    RECT client{};
    GetClientRect(theHitsStrip.window, &client);
    return client;
}

static PerBook<HitsBar> Bars(const PerBook<HitsOfBook>& hits) {
    static constexpr int kShortest = 2, kBehindLongest = 4;
    const HWND strip = theHitsStrip.window;
    const RECT client = ClientArea();
    return LayOutHits(hits, static_cast<int>(client.right) - Scaled(strip, kBehindLongest),
                      static_cast<int>(client.bottom), Scaled(strip, kShortest));
}

static RECT SlotOf(int book) {
    const HitsBar bar = Bars(HitsOfList())[static_cast<std::size_t>(book - 1)];
    return {0, bar.top, ClientArea().right, bar.bottom};
}

static HitsOfBook HitsOf(int book) {
    return HitsOfList()[static_cast<std::size_t>(book - 1)];
}

static int BookAt(int y) {
    return BookAtLine(Bars(HitsOfList()), y);
}

static void OnPaint() {
    PAINTSTRUCT paint;
    BeginPaint(theHitsStrip.window, &paint);
    DrawHits(paint.hdc, ClientArea(), {Bars(HitsOfList()), theHitsStrip.hovered}, thePaneLook.colors);
    EndPaint(theHitsStrip.window, &paint);
}

// ---- The mouse ------------------------------------------------------------------------------------------------------

static void ShowTip() {
    const HWND strip = theHitsStrip.window;
    const int book = theHitsStrip.hovered;
    if (book == 0) return HideHoverTip(theHitsStrip.tip, strip);
    RECT place = SlotOf(book);
    MapWindowPoints(strip, nullptr, reinterpret_cast<POINT*>(&place), 2);
    ShowHoverTip(theHitsStrip.tip, strip, HitsTip(book, HitsOf(book)), place);
}

static void Hover(int book) {
    if (std::exchange(theHitsStrip.hovered, book) == book) return;
    InvalidateRect(theHitsStrip.window, nullptr, FALSE);
    ShowTip();
}

static void OnMouseMove(int y) {
    TRACKMOUSEEVENT leaving{};
    leaving.cbSize = sizeof leaving;
    leaving.dwFlags = TME_LEAVE;
    leaving.hwndTrack = theHitsStrip.window;
    TrackMouseEvent(&leaving);
    Hover(BookAt(y));
}

static void DropSelectionOfList() {
    const int owner = theSelection.SelectionOwner;
    if (owner == kVerseListOwns || owner == kReferenceListOwns) DropSelection();
}

// A selection would decide which entry is the current one. To come there is one jump, like a drag of the thumb.
static void GoToFirstHit(int book) {
    const HWND frame = FrameOf(theHitsStrip.window);
    const int entry = HitsOf(book).firstEntry;
    if (entry < 0) return;
    SendCommand(frame, IDM_BEGIN_THUMB_DRAG);
    DropSelectionOfList();
    ShowListPlace(entry, {entry, entry});
    SendCommand(frame, IDM_END_THUMB_DRAG);
    SendCommand(frame, IDM_REFRESH);
}

static void OnButtonDown(int y) {
    const int book = BookAt(y);
    if (book > 0) GoToFirstHit(book);
}

static bool ShowHand(UINT hitTest) {
    const int book = theHitsStrip.hovered;
    if (hitTest != HTCLIENT || book == 0 || HitsOf(book).hits == 0) return false;
    SetCursor(LoadCursorA(nullptr, IDC_HAND));
    return true;
}

static void OpenMenu(POINT onScreen) {
    const HWND strip = theHitsStrip.window;
    Hover(0);
    OpenPopupMenu(strip, onScreen,
                  {{IDM_COPY_HITS, "Copy Hits by Book\t", theVerseList.list.ListEntries.empty()},
                   {},
                   {.command = IDM_VIEW_HITS, .text = "Hits by Book\t", .checked = true}});
}

// ---- Screen readers -------------------------------------------------------------------------------------------------

static std::wstring Wide(const std::string& ascii) {
    return {ascii.begin(), ascii.end()};
}

static LONG StateOfAll() {
    return STATE_SYSTEM_READONLY | (IsWindowVisible(theHitsStrip.window) ? 0 : STATE_SYSTEM_INVISIBLE);
}

static bool Describe(const void*, int child, AccessibleItem& item) {
    if (child > kBookCount) return false;
    item.state = StateOfAll();
    if (child == CHILDID_SELF) {
        item.role = ROLE_SYSTEM_TABLE;
        item.name = L"Hits by Book";
        item.description = Wide(SpokenListName(theVerseList.list));
        item.place = ClientArea();
        return true;
    }
    const HitsOfBook of = HitsOf(child);
    item.role = ROLE_SYSTEM_ROW;
    item.name = Wide(SpokenHits(child, of));
    item.place = SlotOf(child);
    if (of.hits > 0) item.action = L"Go to First Hit";
    return true;
}

static std::vector<int> AllBooks(const void*) {
    std::vector<int> books;
    for (int book = 1; book <= kBookCount; ++book) books.push_back(book);
    return books;
}

static std::vector<int> NoBooks(const void*) {
    return {};
}

static int NoFocus(const void*) {
    return -1;
}

static int ChildAt(const void*, int, int y) {
    return BookAt(y);  // 0 is CHILDID_SELF
}

// No row says that it can have the focus.
static void TakeNoFocus(const void*, int) {}

static void Act(const void*, int child) {
    GoToFirstHit(child);
}

static LRESULT AnswerScreenReader(WPARAM wParam, LPARAM lParam) {
    static constexpr AccessibleWindow kAbout{.device = nullptr,
                                             .describe = Describe,
                                             .shown = AllBooks,
                                             .selected = NoBooks,
                                             .focused = NoFocus,
                                             .childAt = ChildAt,
                                             .takeFocus = TakeNoFocus,
                                             .act = Act};
    return AnswerGetObject(theHitsStrip.window, kAbout, wParam, lParam);
}

void ShowChangedHits() {
    if (!IsWindowVisible(theHitsStrip.window)) return;
    InvalidateRect(theHitsStrip.window, nullptr, FALSE);
    if (theHitsStrip.hovered > 0) ShowTip();
    NotifyWinEvent(EVENT_OBJECT_REORDER, theHitsStrip.window, OBJID_CLIENT, CHILDID_SELF);
}

// ---- The window -----------------------------------------------------------------------------------------------------

static LRESULT CALLBACK HitsStripProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const POINT point{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};  // of a mouse message
    switch (message) {
        case WM_PAINT: return OnPaint(), 0;
        case WM_ERASEBKGND: return TRUE;  // painted at once, with the bars
        case WM_MOUSEMOVE: return OnMouseMove(static_cast<int>(point.y)), 0;
        case WM_MOUSELEAVE: return Hover(0), 0;
        case WM_LBUTTONDOWN: return OnButtonDown(static_cast<int>(point.y)), 0;
        case WM_CONTEXTMENU: return OpenMenu(point), 0;
        case WM_MOUSEWHEEL: return SendMessageA(ShownListView(), message, wParam, lParam);
        case WM_COMMAND: return SendCommand(FrameOf(window), LOWORD(wParam)), 0;
        case WM_GETOBJECT: return AnswerScreenReader(wParam, lParam);
        case WM_SETCURSOR:
            if (ShowHand(LOWORD(lParam))) return TRUE;
            break;
        case WM_SHOWWINDOW:
            if (!wParam) Hover(0);
            break;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

bool RegisterHitsStripClass() {
    return RegisterPaneClass(kHitsStripClass, HitsStripProcedure, COLOR_WINDOW);
}

void CreateHitsStrip(HWND tabs) {
    theHitsStrip.window = CreateChild(tabs, kHitsStripClass, "Hits by Book", 0, WS_EX_CLIENTEDGE, IDC_HITS_STRIP);
}
