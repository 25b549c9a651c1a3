#include "app/pane_focus_win32.h"

#include <algorithm>
#include <array>

#include "app/frame_win32.h"
#include "notes/note_edit_control_win32.h"
#include "notes/note_editor_window.h"
#include "notes/note_tabs_win32.h"
#include "notes/notes_window.h"
#include "pane/pane_look_win32.h"
#include "passage/passage_window.h"
#include "resources/ids.h"
#include "verselist/verse_list_window.h"
#include "win32/controls.h"
#include "win32/panes.h"

namespace {

struct TabbedPane {
    HWND tabs;
    HWND pane;
};

}  // namespace

// In the order of Tab.
static std::array<TabbedPane, 3> Panes() {
    return {{{theFrame.listTabs, ShownListView()},
             {theFrame.passageTabs, thePassage.window},
             {theNoteTabs.window, theNotes.view}}};
}

// ---- Walking --------------------------------------------------------------------------------------------------------

// From a tab control the first step leads to its pane, and from the frame to the first or the last one.
static void StepFrom(HWND focus, bool back) {
    std::array<HWND, 3> shown{};
    std::size_t count = 0, at = 0, onward = 0;
    for (const auto& [tabs, pane] : Panes()) {
        if (!IsWindowVisible(pane)) continue;
        if (focus == tabs || focus == pane) {
            at = count;
            onward = focus == pane ? 1 : 0;
        }
        shown[count++] = pane;
    }
    if (count == 0) return;
    SetFocus(shown[(at + (back ? count - 1 : onward)) % count]);
}

bool StepsThroughPanes(const MSG& message) {
    if (message.message != WM_KEYDOWN || message.wParam != VK_TAB || IsKeyDown(VK_CONTROL)) return false;
    if (GetAncestor(message.hwnd, GA_ROOT) != theFrame.window) return false;
    if (IsChild(theNoteEditor.window, message.hwnd)) return false;
    StepFrom(message.hwnd, IsKeyDown(VK_SHIFT));
    return true;
}

// ---- The frame's keys and its wheel ---------------------------------------------------------------------------------

namespace {

struct KeyOfFrame {
    UINT key;
    bool control;
    int command;  // in the Passage; 0: the key itself
    WORD scroll;  // in a control of the system, whose own keys would mark lines or move a caret
};

}  // namespace

static constexpr KeyOfFrame kKeys[] = {
    {VK_UP, false, 0, SB_LINEUP},
    {VK_DOWN, false, 0, SB_LINEDOWN},
    {VK_PRIOR, false, 0, SB_PAGEUP},
    {VK_NEXT, false, 0, SB_PAGEDOWN},
    {VK_PRIOR, true, IDM_PREVIOUS_CHAPTER, SB_PAGEUP},
    {VK_NEXT, true, IDM_NEXT_CHAPTER, SB_PAGEDOWN},
    {VK_HOME, true, IDM_PREVIOUS_BOOK, SB_TOP},
    {VK_END, true, IDM_NEXT_BOOK, SB_BOTTOM},
};

static const KeyOfFrame* FindKey(WPARAM key) {
    const bool control = IsControlDown();
    const auto found =
        std::ranges::find_if(kKeys, [=](const KeyOfFrame& row) { return row.key == key && row.control == control; });
    return found != std::end(kKeys) ? found : nullptr;
}

bool IsKeyOfFrame(const MSG& message) {
    return message.message == WM_KEYDOWN && message.hwnd == theFrame.window && FindKey(message.wParam);
}

void PassKeyToPane(UINT key) {
    const KeyOfFrame* row = FindKey(key);
    const HWND pane = FirstPane();
    if (!row || !pane) return;
    if (pane == thePassage.window && row->command != 0) return SendCommand(theFrame.window, row->command);
    const bool reads = pane == thePassage.window || pane == theVerseList.window;
    if (reads) {
        SendMessageA(pane, WM_KEYDOWN, key, 0);
    } else {
        SendMessageA(pane, WM_VSCROLL, row->scroll, 0);
    }
}

// A pane that does not use the message sends it back up to the frame.
void PassWheelToPane(WPARAM wParam, LPARAM lParam) {
    static bool passing = false;
    const HWND pane = FirstPane();
    if (passing || !pane) return;
    passing = true;
    SendMessageA(pane, WM_MOUSEWHEEL, wParam, lParam);
    passing = false;
}

// ---- Tabs -----------------------------------------------------------------------------------------------------------

static void FocusPaneOf(HWND tabs) {
    for (const TabbedPane& each : Panes())
        if (each.tabs == tabs && IsWindowVisible(each.pane)) SetFocus(each.pane);
}

// The Reference List is a child of the list tab control, which therefore gets its notifications. None is passed on.
static void OnCommand(int control, UINT notification) {
    if (control == IDC_REFERENCE_LIST && notification == LBN_DBLCLK) SendCommand(theFrame.window, IDM_CONTEXT);
}

static LRESULT PassToTabs(HWND tabs, UINT message, WPARAM wParam, LPARAM lParam) {
    return CallWindowProcA(theFrame.tabProcedure, tabs, message, wParam, lParam);
}

// The tab control takes the focus or leaves it, and may move another row of tabs under the mouse.
static LRESULT OnButtonDown(HWND tabs, UINT message, WPARAM wParam, LPARAM lParam) {
    TCHITTESTINFO place{{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}, 0};
    const bool isOnTab = TabCtrl_HitTest(tabs, &place) >= 0;
    const LRESULT result = PassToTabs(tabs, message, wParam, lParam);
    if (isOnTab) FocusPaneOf(tabs);
    return result;
}

static LRESULT CALLBACK TabProcedure(HWND tabs, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND:
            if (tabs != theFrame.listTabs) break;
            OnCommand(LOWORD(wParam), HIWORD(wParam));
            return 0;
        case WM_CTLCOLORLISTBOX: return reinterpret_cast<LRESULT>(ColorListBox(reinterpret_cast<HDC>(wParam)));
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK: return OnButtonDown(tabs, message, wParam, lParam);
        case WM_KEYDOWN:
            if (wParam != VK_ESCAPE) break;
            FocusPaneOf(tabs);
            return 0;
    }
    return PassToTabs(tabs, message, wParam, lParam);
}

void WatchTabs() {
    for (const TabbedPane& each : Panes()) theFrame.tabProcedure = Subclass(each.tabs, TabProcedure);
}

void UnwatchTabs() {
    for (const TabbedPane& each : Panes()) {
        WNDPROC procedure = theFrame.tabProcedure;
        Unsubclass(each.tabs, procedure);
    }
    theFrame.tabProcedure = nullptr;
}
