#include "app/frame_win32.h"

#include "notes/note_edit_control_win32.h"
#include "notes/note_editor_window.h"
#include "notes/note_tabs_win32.h"
#include "notes/notes_window.h"
#include "pane/status_bar_win32.h"
#include "passage/passage_window.h"
#include "resources/ids.h"
#include "verselist/verse_list_window.h"
#include "win32/controls.h"
#include "win32/panes.h"
#include "win32/screen.h"

Frame theFrame;

// ---- Layout ---------------------------------------------------------------------------------------------------------

static void Place(HWND window, const Area& place) {
    SetWindowPos(window, nullptr, place.x, place.y, place.width, place.height, SWP_NOZORDER | SWP_NOACTIVATE);
}

static void Show(HWND window, bool shown) {
    ShowWindow(window, shown ? SW_SHOWNA : SW_HIDE);
}

// The display area of a tab control of this size.
static Area DisplayRectangle(HWND tabs, const Area& place) {
    RECT room{0, 0, place.width, place.height};
    TabCtrl_AdjustRect(tabs, FALSE, &room);
    const auto size = [](LONG from, LONG to) { return static_cast<int>(to > from ? to - from : 0); };
    return {room.left, room.top, size(room.left, room.right), size(room.top, room.bottom)};
}

static void PlaceInTabs(HWND tabs, const PanePlace& pane, std::initializer_list<HWND> contents) {
    if (pane.shown) {
        Place(tabs, pane.place);
        const Area room = DisplayRectangle(tabs, pane.place);
        for (const HWND content : contents) Place(content, room);
    }
    Show(tabs, pane.shown);
}

static void PlaceNotes(const PanePlace& notes) {
    PlaceInTabs(theNoteTabs.window, notes, {theNotes.window});
    RECT client{};
    GetClientRect(theNotes.window, &client);
    Place(theNotes.view, {0, 0, client.right, client.bottom});
    Show(theNotes.window, notes.shown);
    Show(theNotes.view, notes.shown);
}

static_assert(static_cast<int>(StatusPart::kSearchRange) + 1 == kStatusPartCount);

static void UpdateStatusParts() {
    RECT client{};
    GetClientRect(theFrame.statusBar, &client);
    int edges[kStatusPartCount];
    StatusPartEdges(client.right, edges);
    SendMessageA(theFrame.statusBar, SB_SETPARTS, kStatusPartCount, reinterpret_cast<LPARAM>(edges));
    SendCommand(theFrame.window, IDM_SHOW_RANGE);
}

static int HeightOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return static_cast<int>(place.bottom - place.top);
}

void LayOut(WPARAM sizeType, int width, int height) {
    for (const HWND bar : {theFrame.toolbar, theFrame.statusBar}) {
        SendMessageA(bar, WM_SIZE, sizeType, MAKELPARAM(width, height));
    }
    Show(theFrame.toolbar, theFrame.shown.ToolBar != 0);
    UpdateStatusParts();
    const FrameSize size{width, height, HeightOf(theFrame.toolbar), HeightOf(theFrame.statusBar)};
    const FrameLayout layout = LayOutFrame(size, theFrame.shown, IsEditingNote());
    PlaceInTabs(theFrame.listTabs, layout.list, {theVerseList.window, theVerseList.references.window});
    PlaceInTabs(theFrame.passageTabs, layout.passage, {thePassage.window});
    PlaceNotes(layout.notes);
    // Also while it is hidden: a long paragraph is slow to break in an editor without a width.
    const PanePlace& editor = layout.editor.shown ? layout.editor : layout.notes;
    if (editor.shown) Place(theNoteEditor.window, editor.place);
    Show(theNoteEditor.window, layout.editor.shown);
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

static HWND CreateTabs(HWND frame, int id, std::initializer_list<const char*> names) {
    const HWND tabs =
        CreateChild(frame, WC_TABCONTROLA, "", WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS | TCS_MULTILINE, 0, id);
    SendMessageA(tabs, WM_SETFONT, reinterpret_cast<WPARAM>(MessageFont()), FALSE);
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
    theFrame.listTabs = CreateTabs(frame, IDC_LIST_TABS, {"Verse List", "Reference List"});
    theFrame.passageTabs = CreateTabs(frame, IDC_PASSAGE_TABS, {"Passage"});
    theNoteTabs.window = CreateTabs(frame, IDC_NOTE_TABS, {});
}
