#include "app/frame_window.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "app/arguments_win32.h"
#include "app/command_table_win32.h"
#include "app/dividers_win32.h"
#include "app/end_of_session_win32.h"
#include "app/frame_win32.h"
#include "app/jump_list_win32.h"
#include "app/pane_focus_win32.h"
#include "app/place_commands_win32.h"
#include "app/session_win32.h"
#include "app/startup_win32.h"
#include "app/system_changes_win32.h"
#include "app/toolbar_win32.h"
#include "notes/note_edit_control_win32.h"
#include "notes/note_editor_window.h"
#include "notes/note_tabs_win32.h"
#include "notes/note_view_text_win32.h"
#include "notes/notes_window.h"
#include "pane/status_bar_win32.h"
#include "passage/passage_window.h"
#include "resources/ids.h"
#include "verselist/verse_list_window.h"
#include "win32/accessible_object.h"
#include "win32/dpi.h"
#include "win32/panes.h"
#include "win32/screen.h"

static BOOL OnCreate(HWND window, CREATESTRUCTA*) {
    theFrame.isCreated = StartUp(window);
    if (theFrame.isCreated && theFrame.closesOnceCreated) PostMessageA(window, WM_CLOSE, 0, 0);
    return theFrame.isCreated;
}

// The frame cannot be destroyed while it is being created: that would be a start that failed. A message box of the
// start lets a task manager's WM_CLOSE through.
static void OnClose(HWND window) {
    if (!theFrame.isCreated)
        theFrame.closesOnceCreated = true;
    else if (MayLeaveEditor())
        DestroyWindow(window);
}

static void OnDestroy(HWND) {
    WriteJumpList();
    ShutDown();
    EndSession();
    PostQuitMessage(0);
}

// A greyed button can still be clicked, because it is in the indeterminate state and not in the disabled one.
static void OnCommand(HWND, int command, HWND control, UINT) {
    if (control == theFrame.toolbar && IsGreyedButton(command)) return;
    Dispatch(command);
    OfferTakenNotes();
}

static void OnNoteSetChosen() {
    Jump([] { ShowNoteOfSet(TabCtrl_GetCurSel(theNoteTabs.window), theNoteSets.currentVerse); });
    RepaintNoteMarks();
}

static LRESULT OnNotify(HWND window, int control, NMHDR* notification) {
    if (notification->code == TBN_GETINFOTIPA) AnswerButtonTip(reinterpret_cast<NMTBGETINFOTIPA*>(notification));
    if (notification->code == TTN_NEEDTEXTA) AnswerToolTip(reinterpret_cast<NMTTDISPINFOA*>(notification));
    if (notification->code == TCN_SELCHANGE && control == IDC_NOTE_TABS) OnNoteSetChosen();
    if (notification->code == TCN_SELCHANGE && control == IDC_LIST_TABS) {
        SwitchListView(TabCtrl_GetCurSel(theFrame.listTabs));
    }
    return DefWindowProcA(window, WM_NOTIFY, static_cast<WPARAM>(control), reinterpret_cast<LPARAM>(notification));
}

static void RememberFocus(HWND window) {
    if (IsChild(window, GetFocus())) theFrame.focusWhenInactive = GetFocus();
}

static void OnSize(HWND window, UINT sizeType, int width, int height) {
    if (sizeType == SIZE_MINIMIZED) return RememberFocus(window);  // the panes keep their sizes
    DivideToolbar();
    LayOut(sizeType, width, height);
}

// When the frame is activated again, the window that had the focus before gets it back. Other programs may have changed
// the note sets meanwhile.
static void OnActivate(HWND window, UINT state, HWND other, BOOL minimized) {
    if (state == WA_INACTIVE) RememberFocus(window);
    if (state != WA_INACTIVE && !minimized && IsWindowVisible(theFrame.focusWhenInactive)) {
        SetFocus(theFrame.focusWhenInactive);
    } else {
        FORWARD_WM_ACTIVATE(window, state, other, minimized, DefWindowProcA);  // focuses the frame if activated
    }
    if (state != WA_INACTIVE && theFrame.startUpComplete) RefreshNotes();
}

static void OnKey(HWND, UINT key, BOOL, int, UINT) {
    PassKeyToPane(key);
}

// A message box or a dialog has opened, which has a message loop of its own, or has closed.
static void OnEnable(HWND, BOOL enabled) {
    if (enabled) return;
    CompleteNoteView(theNotes.view);
    WriteSession();
}

// Also sent before the key of a menu item becomes its command, which needs the item's state.
static void OnInitMenuPopup(HWND, HMENU, UINT, BOOL) {
    RefreshCommands();
}

// A screen was removed, or its resolution changed.
static void OnDisplayChange(HWND window, UINT, UINT, UINT) {
    if (!IsZoomed(window) && !IsIconic(window)) BringOnScreen(window);
}

// The frame has come to a screen with another scaling, or the user has changed that of its screen. `place` is where the
// system wants it to be. The system scales menus, captions, scroll bars and open dialogs.
static LRESULT OnDpiChanged(HWND window, int dpi, const RECT& place) {
    TakeDpi(window, dpi);
    RenewFonts();
    SetWindowPos(window, nullptr, static_cast<int>(place.left), static_cast<int>(place.top),
                 static_cast<int>(place.right - place.left), static_cast<int>(place.bottom - place.top),
                 SWP_NOZORDER | SWP_NOACTIVATE);
    if (IsIconic(window)) return 0;
    DivideToolbar();  // the size may be the same as before
    LayOut();
    return 0;
}

static void NameWithText(HWND control) {
    wchar_t text[40] = L"";
    GetWindowTextW(control, text, static_cast<int>(std::size(text)));
    NameForScreenReaders(control, text);
}

// A screen reader asks for the frame before its controls. Only then do they get their names, to start without COM. The
// toolbar is another one after the scaling has changed, and a note of very many lines leaves another control behind.
static void OnGetObject() {
    static std::array<HWND, 3> named{};
    const std::array controls{theFrame.toolbar, theNotes.view, theNoteEdit.window};
    if (std::exchange(named, controls) == controls) return;
    for (const HWND control : {theFrame.toolbar, theFrame.listTabs, theFrame.passageTabs, theNoteTabs.window,
                               theVerseList.references.window}) {
        NameWithText(control);
    }
    NameForScreenReaders(theFrame.statusBar, L"Status Bar");
    NameForScreenReaders(theNotes.view, L"Note");
    NameForScreenReaders(theNoteEdit.window, L"Note Editor");
}

static LRESULT CALLBACK FrameProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const POINT point{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};  // of a mouse message
    switch (message) {
        HANDLE_MSG(window, WM_CREATE, OnCreate);
        HANDLE_MSG(window, WM_CLOSE, OnClose);
        HANDLE_MSG(window, WM_QUERYENDSESSION, OnQueryEndSession);
        HANDLE_MSG(window, WM_DESTROY, OnDestroy);
        HANDLE_MSG(window, WM_COMMAND, OnCommand);
        HANDLE_MSG(window, WM_NOTIFY, OnNotify);
        HANDLE_MSG(window, WM_SIZE, OnSize);
        HANDLE_MSG(window, WM_ACTIVATE, OnActivate);
        HANDLE_MSG(window, WM_ENABLE, OnEnable);
        HANDLE_MSG(window, WM_INITMENUPOPUP, OnInitMenuPopup);
        HANDLE_MSG(window, WM_DISPLAYCHANGE, OnDisplayChange);
        HANDLE_MSG(window, WM_KEYDOWN, OnKey);
        case WM_ENDSESSION: return OnEndSession(wParam != 0, lParam), 0;
        case WM_COPYDATA:
            return OnCopyData(reinterpret_cast<HWND>(wParam), *reinterpret_cast<const COPYDATASTRUCT*>(lParam));
        case WM_DPICHANGED: return OnDpiChanged(window, HIWORD(wParam), *reinterpret_cast<const RECT*>(lParam));
        case WM_MOUSEWHEEL: return PassWheelToPane(wParam, lParam), 0;
        case WM_SETCURSOR:
            if (ShowDividerCursor(reinterpret_cast<HWND>(wParam), LOWORD(lParam))) return TRUE;
            break;
        case WM_LBUTTONDOWN: return GrabDivider(point), 0;
        case WM_LBUTTONDBLCLK: return PutDividerBack(point), 0;
        case WM_MOUSEMOVE: return DragDivider(point), 0;
        case WM_LBUTTONUP:
        case WM_CAPTURECHANGED: return LetDividerGo(), 0;
        case WM_APPCOMMAND:
            if (OnAppCommand(GET_APPCOMMAND_LPARAM(lParam))) return TRUE;
            break;
        case WM_GETOBJECT: OnGetObject(); break;
        case WM_SYSCOLORCHANGE:
        case WM_SETTINGCHANGE:
        case WM_THEMECHANGED: FollowSystem(message, wParam, lParam); break;
        case WM_ENTERMENULOOP:
        case WM_ENTERSIZEMOVE: WriteSession(); break;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

bool RegisterFrameClass() {
    const HINSTANCE program = GetModuleHandleA(nullptr);
    WNDCLASSA description{};
    description.style = CS_DBLCLKS;
    description.lpfnWndProc = FrameProcedure;
    description.hInstance = program;
    description.hIcon = LoadIconA(program, "Big_Icon");
    description.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    description.hbrBackground = BackgroundOf(COLOR_BTNFACE);
    description.lpszMenuName = "Menu";
    description.lpszClassName = kFrameClass;
    return RegisterClassA(&description) != 0;
}

// The limits of screen coordinates; beyond them, sums could overflow.
static int WithinCoordinates(int pixels) {
    return pixels == kUseDefault ? pixels : std::clamp(pixels, -32767, 32767);
}

// The screens may be others than those of the last run, so the frame is moved before it is shown. If the stored size is
// none, such as that of a damaged file, the system chooses a place: the frame would be a bare title bar.
HWND CreateFrame(const FramePlacement& stored) {
    const bool hasSize = stored.Width > 0 && stored.Height > 0;
    const FramePlacement place = hasSize ? stored : FramePlacement{};
    const HWND frame =
        CreateWindowExA(0, kFrameClass, kFrameClass, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                        WithinCoordinates(place.XPos), WithinCoordinates(place.YPos), WithinCoordinates(place.Width),
                        WithinCoordinates(place.Height), nullptr, nullptr, GetModuleHandleA(nullptr), nullptr);
    if (frame) BringOnScreen(frame);
    return frame;
}
