#include "output/reading_pane_win32.h"

#include <cstdlib>

#include "output/output_win32.h"
#include "resources/ids.h"
#include "win32/controls.h"
#include "win32/panes.h"
#include "win32/screen.h"

void PaintPane(ReadingPane& pane, COLORREF keyWordColor, const std::function<void(const RECT& client)>& layOut) {
    PAINTSTRUCT paint;
    const HDC screen = BeginPaint(pane.window, &paint);
    RECT client{};
    GetClientRect(pane.window, &client);
    if (layOut && !IsRectEmpty(&client)) {
        layOut(client);
        const HDC canvas = CanvasFor(pane.canvas, screen, client.right, client.bottom);
        DrawRuns(canvas, pane.faces, pane.runs, client, keyWordColor);
        CopyCanvas(pane.canvas, screen, paint.rcPaint);
    } else {
        FillRect(screen, &paint.rcPaint, GetSysColorBrush(COLOR_WINDOW));
    }
    EndPaint(pane.window, &paint);
}

std::optional<ScrollCode> ScrollOfBar(UINT code) {
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

std::optional<ScrollCode> ScrollOfKey(UINT key) {
    switch (key) {
        case VK_UP: return ScrollCode::kLineUp;
        case VK_DOWN: return ScrollCode::kLineDown;
        case VK_PRIOR: return ScrollCode::kPageUp;
        case VK_NEXT: return ScrollCode::kPageDown;
    }
    return std::nullopt;
}

void TurnWheel(ReadingPane& pane, int delta, int top, PaneScroll scroll) {
    const int lines = WheelLines();
    if (lines != kPageANotch) return scroll(ScrollCode::kThumb, top - WheelSteps(delta, lines, pane.wheelRest));
    const int pages = WheelSteps(delta, 1, pane.wheelRest);
    const ScrollCode page = pages > 0 ? ScrollCode::kPageUp : ScrollCode::kPageDown;
    for (int turn = std::abs(pages); turn > 0; --turn) scroll(page, 0);
}

// Asked of the faces: the focus may come before the first paint.
static int LineHeightOf(ReadingPane& pane) {
    const TextMeasure measure = MeasureOf(pane.faces);
    return HasFaces(pane.faces) ? measure.lineHeight(measure.device) : 0;
}

void PaneGotFocus(ReadingPane& pane, SelectionOwnerId owner, HWND before) {
    const int ownerBefore = theSelection.SelectionOwner;
    if (ownerBefore != owner && ownerBefore != kNobody) {
        DropSelection();
        if (before) InvalidateRect(before, nullptr, FALSE);
    }
    SendCommand(FrameOf(pane.window), IDM_REFRESH);
    ShowPaneCaret(pane.window, LineHeightOf(pane));
}

void PaneLostFocus(const ReadingPane& pane) {
    DestroyCaret();
    ReleaseMouse(pane);
    DropSelection();
    SendCommand(FrameOf(pane.window), IDM_REFRESH);
    RedisplayPane(pane);
}

void RedisplayPane(const ReadingPane& pane) {
    InvalidateRect(pane.window, nullptr, FALSE);
}

void FocusPane(const ReadingPane& pane) {
    if (GetFocus() != pane.window) SetFocus(pane.window);
}

void PressMouse(const ReadingPane& pane, const PaneSelecting& selecting, int x, int y) {
    if (GetFocus() != pane.window) return FocusPane(pane);
    const SelectionPoint point = selecting.pointAt(x, y);
    const bool isWord = point != SelectionPoint{};
    if (!isWord && theSelection.SelectionOwner != selecting.owner) return;
    theSelection = {isWord ? selecting.owner : kNobody, point, point, isWord};
    if (isWord && GetCapture() != pane.window) SetCapture(pane.window);
    SendCommand(FrameOf(pane.window), IDM_REFRESH);
    RedisplayPane(pane);
}

static int StepAtEdge(const ReadingPane& pane, int y) {
    RECT client{};
    GetClientRect(pane.window, &client);
    const int edge = Scaled(6);
    return y < edge ? -1 : y > client.bottom - edge ? 1 : 0;
}

// Where no word is, the selection stays as it is. Only what changes is painted.
void DragMouse(const ReadingPane& pane, const PaneSelecting& selecting, int x, int y, UINT keys) {
    if (!(keys & MK_LBUTTON) || !theSelection.dragging || theSelection.SelectionOwner != selecting.owner) return;
    const int by = StepAtEdge(pane, y);
    if (by != 0) selecting.step(by);
    const SelectionPoint point = selecting.pointAt(x, y);
    if (point == SelectionPoint{} || point == theSelection.end) return;
    theSelection.end = point;
    RedisplayPane(pane);
}

void ReleaseMouse(const ReadingPane& pane) {
    theSelection.dragging = false;
    if (GetCapture() == pane.window) ReleaseCapture();
}
