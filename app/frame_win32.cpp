#include "app/frame_win32.h"

#include <algorithm>
#include <array>
#include <span>

#include "notes/note_edit_control_win32.h"
#include "notes/note_editor_window.h"
#include "notes/note_tabs_win32.h"
#include "notes/notes_window.h"
#include "pane/status_bar_win32.h"
#include "passage/passage_window.h"
#include "resources/ids.h"
#include "verselist/hits_strip_window.h"
#include "verselist/verse_list_window.h"
#include "win32/controls.h"
#include "win32/dpi.h"
#include "win32/panes.h"

Frame theFrame;

// ---- Layout ---------------------------------------------------------------------------------------------------------

namespace {

struct Placed {
    HWND window;
    PanePlace pane;
};

}  // namespace

// Where a child is in its parent's client area.
static Area PlaceOf(HWND child) {
    RECT place{};
    GetWindowRect(child, &place);
    MapWindowPoints(nullptr, GetParent(child), reinterpret_cast<POINT*>(&place), 2);
    return {static_cast<int>(place.left), static_cast<int>(place.top), static_cast<int>(place.right - place.left),
            static_cast<int>(place.bottom - place.top)};
}

// Windows that are hidden or already at their place get no message.
static bool IsToBeMoved(const Placed& placed) {
    return placed.pane.shown && PlaceOf(placed.window) != placed.pane.place;
}

static void Place(const Placed& placed) {
    const auto& [x, y, width, height] = placed.pane.place;
    if (IsToBeMoved(placed)) SetWindowPos(placed.window, nullptr, x, y, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

// Moves windows of one parent in one step.
static void Place(std::span<const Placed> windows) {
    HDWP moves = BeginDeferWindowPos(static_cast<int>(windows.size()));
    for (const Placed& placed : windows) {
        const auto& [x, y, width, height] = placed.pane.place;
        if (!moves || !IsToBeMoved(placed)) continue;
        moves = DeferWindowPos(moves, placed.window, nullptr, x, y, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
    }
    if (moves) EndDeferWindowPos(moves);
}

// Hides or shows the window itself, whatever its parent is.
static void Show(HWND window, bool shown) {
    const bool isShown = (GetWindowLongPtrA(window, GWL_STYLE) & WS_VISIBLE) != 0;
    if (isShown != shown) ShowWindow(window, shown ? SW_SHOWNA : SW_HIDE);
}

// The display area of a tab control of this size.
static PanePlace DisplayArea(HWND tabs, const PanePlace& pane) {
    RECT room{0, 0, pane.place.width, pane.place.height};
    if (pane.shown) TabCtrl_AdjustRect(tabs, FALSE, &room);
    const auto size = [](LONG from, LONG to) { return static_cast<int>(to > from ? to - from : 0); };
    return {pane.shown, {room.left, room.top, size(room.left, room.right), size(room.top, room.bottom)}};
}

static int WidthOfHitsStrip() {
    return theHitsStrip.HitsByBook != 0 ? Scaled(theFrame.window, kHitsStripWidth) : 0;
}

// The tab controls must have their place: their width decides how many rows of tabs are above the panes.
static void PlaceInTabs(const FrameLayout& layout) {
    const auto [list, strip] = DivideListRoom(DisplayArea(theFrame.listTabs, layout.list), WidthOfHitsStrip());
    const PanePlace notes = DisplayArea(theNoteTabs.window, layout.notes);
    const PanePlace view{notes.shown, {0, 0, notes.place.width, notes.place.height}};
    if (!strip.shown) Show(theHitsStrip.window, false);
    Place({theVerseList.window, list});
    Place({theVerseList.references.window, list});
    Place({theHitsStrip.window, strip});
    if (strip.shown) Show(theHitsStrip.window, true);
    Place({thePassage.window, DisplayArea(theFrame.passageTabs, layout.passage)});
    Place({theNotes.window, notes});
    Place({theNotes.view, view});
}

static_assert(static_cast<int>(StatusPart::kSearchRange) + 1 == kStatusPartCount);

static int HeightOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return static_cast<int>(place.bottom - place.top);
}

static int WidthOfStatusBar() {
    RECT client{};
    GetClientRect(theFrame.statusBar, &client);
    return static_cast<int>(client.right);
}

static void DivideStatusBar() {
    int edges[kStatusPartCount];
    StatusPartEdges(WidthOfStatusBar(), edges);
    SendMessageA(theFrame.statusBar, SB_SETPARTS, kStatusPartCount, reinterpret_cast<LPARAM>(edges));
}

static void PlaceBars(WPARAM sizeType, int width, int height) {
    const int widthBefore = WidthOfStatusBar();
    for (const HWND bar : {theFrame.toolbar, theFrame.statusBar}) {
        SendMessageA(bar, WM_SIZE, sizeType, MAKELPARAM(width, height));
    }
    Show(theFrame.toolbar, theFrame.shown.ToolBar != 0);
    const bool isDivided = SendMessageA(theFrame.statusBar, SB_GETPARTS, 0, 0) == kStatusPartCount;
    if (!isDivided || WidthOfStatusBar() != widthBefore) DivideStatusBar();
    SendCommand(theFrame.window, IDM_SHOW_RANGE);
}

static FrameSize FrameSizeFor(int width, int height) {
    const HWND frame = theFrame.window;
    return {
        .width = width,
        .height = height,
        .toolbarHeight = HeightOf(theFrame.toolbar),
        .statusHeight = HeightOf(theFrame.statusBar),
        .gapBelowToolbar = Scaled(frame, kGapBelowToolbar),
        .leastPaneWidth = Scaled(frame, kLeastPaneWidth),
        .leastPaneHeight = Scaled(frame, kLeastPaneHeight),
    };
}

static FrameLayout LayoutFor(int width, int height, bool editingNote) {
    return LayOutFrame(FrameSizeFor(width, height), theFrame.shown, editingNote, theFrame.shares);
}

FrameSize CurrentFrameSize() {
    RECT client{};
    GetClientRect(theFrame.window, &client);
    return FrameSizeFor(static_cast<int>(client.right), static_cast<int>(client.bottom));
}

FrameLayout CurrentLayout() {
    return LayOutFrame(CurrentFrameSize(), theFrame.shown, IsEditingNote(), theFrame.shares);
}

// What has to be hidden goes first, and what comes appears at its place.
static void PlaceAndShow(const FrameLayout& layout) {
    const std::array<Placed, 4> inFrame{{{theFrame.listTabs, layout.list},
                                         {theFrame.passageTabs, layout.passage},
                                         {theNoteTabs.window, layout.notes},
                                         {theNoteEditor.window, layout.editor}}};
    for (const auto& [window, pane] : inFrame)
        if (!pane.shown) Show(window, false);
    Place(inFrame);
    PlaceInTabs(layout);
    for (const HWND window : {theNotes.window, theNotes.view}) Show(window, layout.notes.shown);
    for (const auto& [window, pane] : inFrame) Show(window, pane.shown);
}

void LayOut(WPARAM sizeType, int width, int height) {
    PlaceBars(sizeType, width, height);
    PlaceAndShow(LayoutFor(width, height, IsEditingNote()));
}

void PlaceHiddenEditor() {
    RECT client{};
    GetClientRect(theFrame.window, &client);
    const FrameLayout layout = LayoutFor(client.right, client.bottom, true);
    Place({theNoteEditor.window, layout.editor});
}

HWND FirstPane() {
    for (const HWND pane : {thePassage.window, ShownListView(), theNotes.view, theNoteEdit.window})
        if (IsWindowVisible(pane)) return pane;
    return nullptr;
}

// If the focused pane has been hidden, moves the focus to a visible one. Otherwise keys would go to a hidden window.
static void KeepFocusShown() {
    const HWND focus = GetFocus();
    if (!focus || IsWindowVisible(focus)) return;
    const HWND pane = FirstPane();
    SetFocus(pane ? pane : theFrame.window);
}

void LayOut() {
    RECT client{};
    GetClientRect(theFrame.window, &client);
    LayOut(SIZE_RESTORED, client.right, client.bottom);
    if (IsWindowVisible(theFrame.window)) KeepFocusShown();
}

void UpdateDevotionalMenu() {
    static constexpr UINT kPlace = 6;  // in the menu bar
    static constexpr char kText[] = "&Devotional";
    // Removed but not deleted: deleting its 732 items would noticeably slow down start-up. They are freed at exit.
    static HMENU removed = nullptr;
    const bool isShown = removed == nullptr, isWanted = theNoteSets.devotionalSet != kNoDevotionalSet;
    if (isShown == isWanted) return;
    if (isWanted) {
        InsertMenuA(theFrame.menu, kPlace, MF_BYPOSITION | MF_POPUP, reinterpret_cast<UINT_PTR>(removed), kText);
        removed = nullptr;
    } else {
        removed = GetSubMenu(theFrame.menu, kPlace);
        RemoveMenu(theFrame.menu, kPlace, MF_BYPOSITION);
    }
    DrawMenuBar(theFrame.window);
}

void RefreshCommands() {
    SendCommand(theFrame.window, IDM_REFRESH);
}

void RepaintNoteMarks() {
    RedisplayVerseList();
    RedisplayPassage();
}

// ---- Creation -------------------------------------------------------------------------------------------------------

// A tab control scales its text, but not the room around it.
static void Scale(HWND tabs) {
    static constexpr int kBesideText = 6, kAboveText = 3;  // its own, unscaled
    TabCtrl_SetPadding(tabs, Scaled(tabs, kBesideText), Scaled(tabs, kAboveText));
    SendMessageA(tabs, WM_SETFONT, reinterpret_cast<WPARAM>(MessageFont(tabs)), TRUE);
}

void ScaleTabs() {
    for (const HWND tabs : {theFrame.listTabs, theFrame.passageTabs, theNoteTabs.window}) Scale(tabs);
}

// `text` is not shown; it is what screen readers call the control. It is as wide as the frame, up to its first layout:
// without a width each new tab would begin a row, for which Wine asks its server once more.
static HWND CreateTabs(HWND frame, int id, const char* text, std::initializer_list<const char*> names) {
    RECT client{};
    GetClientRect(frame, &client);
    const HWND tabs =
        CreateChild(frame, WC_TABCONTROLA, text, WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS | TCS_MULTILINE, 0, id,
                    static_cast<int>(client.right));
    Scale(tabs);
    for (const char* name : names) {
        TCITEMA item{};
        item.mask = TCIF_TEXT;
        item.pszText = const_cast<char*>(name);
        SendMessageA(tabs, TCM_INSERTITEMA, static_cast<WPARAM>(TabCtrl_GetItemCount(tabs)),
                     reinterpret_cast<LPARAM>(&item));
    }
    return tabs;
}

void CreateBars(HWND frame) {
    theFrame.statusBar = CreateStatusBar(frame);
    theFrame.listTabs = CreateTabs(frame, IDC_LIST_TABS, "Lists of Verses", {"Verse List", "Reference List"});
    theFrame.passageTabs = CreateTabs(frame, IDC_PASSAGE_TABS, "Passage", {"Passage"});
    theNoteTabs.window = CreateTabs(frame, IDC_NOTE_TABS, "Note Sets", {});
}
