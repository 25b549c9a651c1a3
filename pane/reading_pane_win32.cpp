#include "pane/reading_pane_win32.h"

#include <algorithm>
#include <cstdlib>
#include <initializer_list>
#include <optional>
#include <utility>

#include "pane/pane_look_win32.h"
#include "resources/ids.h"
#include "win32/controls.h"
#include "win32/dpi.h"
#include "win32/popup_menu.h"

ReadingOptions theReading;

RECT ClientAreaOf(const ReadingPane& pane) {
    RECT client{};
    GetClientRect(pane.window, &client);
    return client;
}

void RedisplayPane(const ReadingPane& pane) {
    InvalidateRect(pane.window, nullptr, FALSE);
}

static void RefreshFrame(const ReadingPane& pane) {
    SendCommand(FrameOf(pane.window), IDM_REFRESH);
}

// ---- Painting -------------------------------------------------------------------------------------------------------

static TextColor ColorOf(SelectionOwnerId owner, const OrderedSelection& selection, const FlowBox& box) {
    if (theSelection.SelectionOwner == owner && IsSelected(selection, box.point)) return TextColor::kSelected;
    return box.keyWord ? TextColor::kKeyWord : TextColor::kNormal;
}

FlowVisitor RunsVisitor(ReadingPane& pane, SelectionOwnerId owner) {
    return [&pane, owner, selection = Ordered(theSelection)](const FlowBox& box) {
        AddText(pane.text, pane.faces, box.face, ColorOf(owner, selection, box), box.x, box.y, box.width, box.text);
        return true;
    };
}

// Of both panes: what is painted is on the screen at once.
static Canvas canvas;

bool HasPaintBitmap() {
    return canvas.bitmap != nullptr;
}

void GiveBackPaintBitmap() {
    canvas = {};
}

// The pane that has scrolled since its position was last shown.
static const PaneKind* scrolledPane = nullptr;

static void LayOut(const PaneKind& kind, const RECT& client) {
    std::swap(kind.pane.text, kind.pane.textBefore);
    Clear(kind.pane.text);
    kind.layOut(client);
}

static void ShowPosition(const PaneKind& kind) {
    if (scrolledPane == &kind) scrolledPane = nullptr;
    if (kind.hasText()) kind.showPosition();
    SendCommand(FrameOf(kind.pane.window), IDM_MARK_NOTE_SETS);
    TellChanges(kind.spoken);
}

// Paints what is invalid. If the layout has changed although not all of the pane is invalid, the rest is painted too:
// scrolling relies on `text` being on the screen.
static void PaintPane(const PaneKind& kind, const PAINTSTRUCT& paint, const RECT& client) {
    ReadingPane& pane = kind.pane;
    if (!pane.isScrolling) {
        LayOut(kind, client);
        if (!EqualRect(&paint.rcPaint, &client) && pane.text != pane.textBefore) RedisplayPane(pane);
    }
    PaintText(paint.hdc, canvas, pane.faces, pane.text, client, thePaneLook.colors);
}

// The system sends WM_PAINT when no more input is waiting, so that is when the position is shown, unless it is the
// paint of a single scroll.
static void OnPaint(const PaneKind& kind) {
    PAINTSTRUCT paint;
    BeginPaint(kind.pane.window, &paint);
    const RECT client = ClientAreaOf(kind.pane);
    if (kind.hasText() && !IsRectEmpty(&client)) {
        PaintPane(kind, paint, client);
    } else {
        FillWithColor(paint.hdc, paint.rcPaint, thePaneLook.colors.paper);
    }
    EndPaint(kind.pane.window, &paint);
    if (!kind.pane.isScrolling) ShowPosition(kind);
}

// ---- Scrolling ------------------------------------------------------------------------------------------------------

void MoveScrollBox(const ReadingPane& pane, int top) {
    if (GetScrollPos(pane.window, SB_VERT) != top) SetScrollPos(pane.window, SB_VERT, top, TRUE);
}

// Moves the lines on the screen and invalidates all others, at once, because each call is a request to Wine's server.
// What is invalid before remains so, at its new place too, and what could not be moved because another window was in
// front of it becomes invalid. The first line never moves, so the caret stays.
static void MoveLines(const ReadingPane& pane, const RECT& client, const MovedLines& moved, int lineHeight) {
    RECT both = client, above = client, below = client;
    both.top = std::min(moved.from, moved.to) * lineHeight;
    both.bottom = (std::max(moved.from, moved.to) + moved.count) * lineHeight;
    above.bottom = moved.to * lineHeight;
    below.top = (moved.to + moved.count) * lineHeight;
    const OwnedRegion invalid(CreateRectRgnIndirect(&above)), other(CreateRectRgnIndirect(&below));
    CombineRgn(invalid.get(), invalid.get(), other.get(), RGN_OR);
    ScrollWindowEx(pane.window, 0, (moved.to - moved.from) * lineHeight, &both, &both, other.get(), nullptr, 0);
    CombineRgn(invalid.get(), invalid.get(), other.get(), RGN_OR);
    InvalidateRgn(pane.window, invalid.get(), FALSE);
}

// The next scroll depends on the items that this one shows, and the eye follows each of them, so each is painted.
static void ShowScrolled(const PaneKind& kind) {
    ReadingPane& pane = kind.pane;
    const RECT client = ClientAreaOf(pane);
    const int lineHeight = LineHeightOf(MeasureOf(pane.faces));
    LayOut(kind, client);
    const MovedLines moved = LinesMoved(pane.textBefore, pane.text, lineHeight, static_cast<int>(client.bottom));
    if (moved.count > 0) {
        MoveLines(pane, client, moved, lineHeight);
    } else {
        RedisplayPane(pane);
    }
    pane.isScrolling = true;
    UpdateWindow(pane.window);
    pane.isScrolling = false;
}

// A pixel of the first line, which each scroll paints, is invalidated, so that the system sends WM_PAINT later.
// RDW_INTERNALPAINT would say the same, but under Wine the queue then claims for ever that a window awaits its paint.
static void AwaitRest(const ReadingPane& pane) {
    static constexpr RECT kPixel{0, 0, 1, 1};
    InvalidateRect(pane.window, &kPixel, FALSE);
}

static void ShowLater(const PaneKind& kind) {
    if (scrolledPane != nullptr && scrolledPane != &kind) ShowPosition(*scrolledPane);
    scrolledPane = &kind;
    AwaitRest(kind.pane);
}

void ScrollPane(const PaneKind& kind, ScrollCode code, int thumb) {
    if (!kind.hasText()) return;
    const int top = kind.scrolledTop(code, thumb);
    if (top == kind.top()) return;
    kind.setTop(top);
    ShowScrolled(kind);
    ShowLater(kind);
}

static std::optional<ScrollCode> ScrollOfBar(UINT code) {
    switch (code) {
        case SB_LINEUP: return ScrollCode::kLineUp;
        case SB_LINEDOWN: return ScrollCode::kLineDown;
        case SB_PAGEUP: return ScrollCode::kPageUp;
        case SB_PAGEDOWN: return ScrollCode::kPageDown;
        case SB_THUMBPOSITION:
        case SB_THUMBTRACK: return ScrollCode::kThumb;
    }
    return std::nullopt;
}

static std::optional<ScrollCode> ScrollOfKey(UINT key) {
    switch (key) {
        case VK_UP: return ScrollCode::kLineUp;
        case VK_DOWN: return ScrollCode::kLineDown;
        case VK_PRIOR: return ScrollCode::kPageUp;
        case VK_NEXT: return ScrollCode::kPageDown;
    }
    return std::nullopt;
}

static void HoldThumb(ReadingPane& pane, bool held) {
    if (std::exchange(pane.isThumbHeld, held) == held) return;
    SendCommand(FrameOf(pane.window), held ? IDM_BEGIN_THUMB_DRAG : IDM_END_THUMB_DRAG);
}

static void OnVScroll(const PaneKind& kind, UINT code, int thumb) {
    if (code == SB_THUMBTRACK || code == SB_THUMBPOSITION) HoldThumb(kind.pane, true);
    if (const auto scroll = ScrollOfBar(code)) ScrollPane(kind, *scroll, thumb);
    if (code == SB_THUMBPOSITION || code == SB_ENDSCROLL) HoldThumb(kind.pane, false);
}

static void OnKeyDown(const PaneKind& kind, UINT key) {
    if (const auto scroll = ScrollOfKey(key)) return ScrollPane(kind, *scroll, 0);
    kind.onKey(kind, key);
}

// Scrolls by the user's setting of lines per wheel notch, or by pages.
static void OnMouseWheel(const PaneKind& kind, int delta) {
    const int lines = WheelLines();
    int& rest = kind.pane.wheelRest;
    if (lines != kPageANotch) {
        return ScrollPane(kind, ScrollCode::kThumb, kind.top() - WheelSteps(delta, lines, rest));
    }
    const int pages = WheelSteps(delta, 1, rest);
    const ScrollCode page = pages > 0 ? ScrollCode::kPageUp : ScrollCode::kPageDown;
    for (int turn = std::abs(pages); turn > 0; --turn) ScrollPane(kind, page, 0);
}

static bool IsAnyKeyDown(std::initializer_list<int> keys) {
    return std::ranges::any_of(keys, [](int key) { return IsKeyDown(key); });
}

// A key is released and the mouse moves while a pane scrolls. With Ctrl or Shift a key may be a command.
static bool ScrollsFurther(const ReadingPane& pane, const MSG& message) {
    switch (message.message) {
        case WM_KEYDOWN:
            return message.hwnd == pane.window && ScrollOfKey(static_cast<UINT>(message.wParam)) &&
                   !IsAnyKeyDown({VK_CONTROL, VK_SHIFT});
        case WM_MOUSEWHEEL:
        case WM_VSCROLL: return message.hwnd == pane.window;
        case WM_KEYUP:
        case WM_MOUSEMOVE:
        case WM_NCMOUSEMOVE:
        case WM_PAINT:
        case WM_TIMER: return true;
    }
    return false;
}

bool ScrollsOn(const MSG& message) {
    if (scrolledPane == nullptr) return false;
    const bool scrolls = ScrollsFurther(scrolledPane->pane, message);
    if (!scrolls) ShowPosition(*scrolledPane);
    return scrolls && message.message == WM_KEYDOWN;
}

// ---- Focus ----------------------------------------------------------------------------------------------------------

// Measured here because the pane can get the focus before its first paint.
static int LineHeightOf(ReadingPane& pane) {
    const TextMeasure measure = MeasureOf(pane.faces);
    return HasFaces(pane.faces) ? measure.lineHeight(measure.device) : 0;
}

static void ShowCaretOf(ReadingPane& pane) {
    ShowPaneCaret(pane.window, LineHeightOf(pane));
}

void SetPaneFont(ReadingPane& pane, const FontChoice& choice) {
    ChooseFaces(pane.faces, choice, DpiOf(pane.window));
    pane.leftMargin = Scaled(pane.window, kLeftMargin);
    if (GetFocus() == pane.window) ShowCaretOf(pane);
    RedisplayPane(pane);
}

// Drops another pane's selection, which also disables the commands that depend on it.
static void OnSetFocus(const PaneKind& kind, HWND before) {
    const int ownerBefore = theSelection.SelectionOwner;
    if (ownerBefore != kind.selected.owner && ownerBefore != kNobody) {
        DropSelection();
        if (before) InvalidateRect(before, nullptr, FALSE);
    }
    RefreshFrame(kind.pane);
    ShowCaretOf(kind.pane);
    AwaitRest(kind.pane);  // what has the focus is told then: a list may be about to be replaced
}

static void ReleaseMouse(ReadingPane& pane) {
    theSelection.dragging = false;
    pane.doubleClicked = false;
    if (GetCapture() == pane.window) ReleaseCapture();
}

static void OnKillFocus(ReadingPane& pane) {
    pane.told.current = -1;
    DestroyCaret();
    ReleaseMouse(pane);
    DropSelection();
    RefreshFrame(pane);
    RedisplayPane(pane);
}

static void FocusPane(const ReadingPane& pane) {
    if (GetFocus() != pane.window) SetFocus(pane.window);
}

// ---- The mouse ------------------------------------------------------------------------------------------------------

static SelectionPoint PointAt(const PaneKind& kind, int x, int y) {
    return kind.hasText() ? kind.pointAt(x, y) : SelectionPoint{};
}

// If the pane has the focus, a press on a word starts a selection, or extends it with Shift, and a press elsewhere ends
// the pane's selection. Otherwise a press only sets the focus.
static void OnLButtonDown(const PaneKind& kind, int x, int y, UINT keys) {
    const ReadingPane& pane = kind.pane;
    if (GetFocus() != pane.window) return FocusPane(pane);
    const SelectionPoint point = PointAt(kind, x, y);
    const bool isWord = point != SelectionPoint{};
    const bool owns = theSelection.SelectionOwner == kind.selected.owner;
    const bool extends = owns && (keys & MK_SHIFT);
    if (!isWord && (!owns || extends)) return;
    const SelectionPoint anchor = extends ? theSelection.anchor : point;
    theSelection = {isWord ? kind.selected.owner : kNobody, anchor, point, isWord};
    if (isWord && GetCapture() != pane.window) SetCapture(pane.window);
    RefreshFrame(pane);
    RedisplayPane(pane);
}

static int StepAtEdge(const ReadingPane& pane, int y) {
    const int edge = Scaled(pane.window, 6);
    return y < edge ? -1 : y > ClientAreaOf(pane).bottom - edge ? 1 : 0;
}

// A drag near the upper or lower edge scrolls by one item per mouse move.
static void StepTop(const PaneKind& kind, int by) {
    const int top = kind.clampItem(kind.top() + by);
    if (top == kind.top()) return;
    kind.setTop(top);
    RedisplayPane(kind.pane);
}

// The selection does not change while the mouse is not on a word, and the pane is only repainted when it changes.
static void OnMouseMove(const PaneKind& kind, int x, int y, UINT keys) {
    const bool drags = theSelection.dragging && theSelection.SelectionOwner == kind.selected.owner;
    if (!(keys & MK_LBUTTON) || !drags) return;
    const int by = StepAtEdge(kind.pane, y);
    if (by != 0) StepTop(kind, by);
    const SelectionPoint point = PointAt(kind, x, y);
    if (point == SelectionPoint{} || point == theSelection.end) return;
    theSelection.end = point;
    RedisplayPane(kind.pane);
}

// What a double click does waits for the release, because the second press can also begin a drag.
static void OnLButtonDblClk(const PaneKind& kind, int x, int y, UINT keys) {
    OnLButtonDown(kind, x, y, keys);
    kind.pane.doubleClicked = theSelection.dragging;
}

static void OnLButtonUp(const PaneKind& kind) {
    const bool isOneWord = theSelection.dragging && theSelection.anchor == theSelection.end;
    const bool doubleClicked = kind.pane.doubleClicked && isOneWord;
    ReleaseMouse(kind.pane);
    if (doubleClicked) kind.onDoubleClick();
}

static void OpenMenu(const PaneKind& kind, int x, int y) {
    kind.openMenu(FromCornerOf(kind.pane.window, x, y));
}

static void OnRButtonUp(const PaneKind& kind, int x, int y) {
    FocusPane(kind.pane);
    OpenMenu(kind, x, y);
}

// ---- Messages -------------------------------------------------------------------------------------------------------

static void OnCreate(const PaneKind& kind, HWND window) {
    kind.pane.window = window;
    kind.onCreate(window);
}

static void OnCommand(const PaneKind& kind, int command) {
    if (!RunSelectionCommand(kind.pane.window, kind.selected, command)) kind.onCommand(command);
}

LRESULT ReadingPaneProcedure(const PaneKind& kind, HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const int x = GET_X_LPARAM(lParam), y = GET_Y_LPARAM(lParam);
    switch (message) {
        case WM_CREATE: return OnCreate(kind, window), 0;
        case WM_SETFOCUS: return OnSetFocus(kind, reinterpret_cast<HWND>(wParam)), 0;
        case WM_KILLFOCUS: return OnKillFocus(kind.pane), 0;
        case WM_PAINT: return OnPaint(kind), 0;
        case WM_GETOBJECT: return AnswerScreenReader(kind.spoken, wParam, lParam);
        case WM_ERASEBKGND: return TRUE;  // the paint covers the whole pane
        case WM_KEYDOWN: return OnKeyDown(kind, static_cast<UINT>(wParam)), 0;
        case WM_VSCROLL: return OnVScroll(kind, LOWORD(wParam), static_cast<short>(HIWORD(wParam))), 0;
        case WM_MOUSEWHEEL: return OnMouseWheel(kind, GET_WHEEL_DELTA_WPARAM(wParam)), 0;
        case WM_LBUTTONDOWN: return OnLButtonDown(kind, x, y, static_cast<UINT>(wParam)), 0;
        case WM_LBUTTONDBLCLK: return OnLButtonDblClk(kind, x, y, static_cast<UINT>(wParam)), 0;
        case WM_MOUSEMOVE: return OnMouseMove(kind, x, y, static_cast<UINT>(wParam)), 0;
        case WM_LBUTTONUP: return OnLButtonUp(kind), 0;
        case WM_CAPTURECHANGED: return ReleaseMouse(kind.pane), 0;
        case WM_RBUTTONUP: return OnRButtonUp(kind, x, y), 0;
        case WM_COMMAND: return OnCommand(kind, LOWORD(wParam)), 0;
        case WM_CONTEXTMENU:
            if (!IsMenuByKey(LOWORD(lParam), HIWORD(lParam))) break;
            return OpenMenu(kind, OffsetOfKeyMenu(window), OffsetOfKeyMenu(window)), 0;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}
