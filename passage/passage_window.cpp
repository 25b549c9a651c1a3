#include "passage/passage_window.h"

#include <algorithm>

#include "notes/notes_window.h"
#include "output/output_win32.h"
#include "output/selection_commands_win32.h"
#include "passage/passage_copy.h"
#include "passage/passage_menu_win32.h"
#include "resources/ids.h"
#include "scripture/scripture_win32.h"
#include "win32/controls.h"
#include "win32/panes.h"
#include "win32/popup_menu.h"

PassagePane thePassage;

static constexpr int kPassagePart = 3;  // of the status bar

static PassageFlow FlowOf(const RECT& client) {
    return {
        .scripture = &theScripture,
        .noteFiles = &TheNoteFiles(),
        .notes = &theNotes.sets,
        .options = theReading,
        .measure = MeasureOf(thePassage.faces),
        .topVerse = thePassage.view.TopVerse,
        .width = client.right,
        .height = client.bottom,
    };
}

static PassageFlow CurrentFlow() {
    RECT client{};
    GetClientRect(thePassage.window, &client);
    return FlowOf(client);
}

// Before start-up is through, or after one that stopped half-way, there is no text to show.
static bool HasText() {
    return !theScripture.records.bytes.empty() && HasFaces(thePassage.faces);
}

void RedisplayPassage() {
    RedisplayPane(thePassage);
}

void ScrollToVerse(int verse) {
    thePassage.view.TopVerse = ClampVerse(verse);
    RedisplayPassage();
    if (theNotes.BindNotes) ReadNote(thePassage.view.TopVerse);
}

void SetPassageFont(const FontChoice& choice) {
    ChooseFaces(thePassage.faces, choice);
    RedisplayPassage();
}

int PassageTargetVerse() {
    return TargetVerse(thePassage.view, theSelection, GetFocus() == thePassage.window);
}

// A heading goes with the label under it.
static TextColor ColorOf(const OrderedSelection& selection, const FlowBox& box) {
    const bool selected = theSelection.SelectionOwner == kPassageOwns && IsSelected(selection, box.point);
    return selected ? TextColor::kSelected : TextColor::kNormal;
}

static void LayOutRuns(const RECT& client) {
    const OrderedSelection selection = Ordered(theSelection);
    const FlowEnd end = WalkPassage(FlowOf(client), FlowFaces::kAsPainted, [&selection](const FlowBox& box) {
        AddText(thePassage.runs, thePassage.faces, box.face, ColorOf(selection, box), box.x, box.y, box.width,
                box.text);
        return true;
    });
    thePassage.view.LastVisibleVerse = end.lastVerse;
    thePassage.view.LineHeight = end.lineHeight;
    CorrectLastVisible(thePassage.view);
}

static void ShowPosition(HWND window) {
    const int top = thePassage.view.TopVerse;
    SetStatusPart(GetDlgItem(FrameOf(window), IDC_STATUS_BAR), kPassagePart,
                  ReferenceText(theScripture.records, top, BookForm::kName));
    if (GetScrollPos(window, SB_VERT) != top) SetScrollPos(window, SB_VERT, top, TRUE);
}

static void LayOutAndShowPosition(const RECT& client) {
    ShowPosition(thePassage.window);
    LayOutRuns(client);
}

static void OnPaint(HWND window) {
    PaintPane(thePassage, 0, HasText() ? LayOutAndShowPosition : nullptr);
    SendCommand(FrameOf(window), IDM_MARK_NOTE_SETS);
}

static void Scroll(ScrollCode code, int thumb) {
    if (!HasText()) return;
    const int top = ScrolledTop(CurrentFlow(), thePassage.view, code, thumb);
    if (top == thePassage.view.TopVerse) return;
    ScrollToVerse(top);
    UpdateWindow(thePassage.window);  // the next step goes by what this one shows
}

static void OnVScroll(HWND, HWND, UINT code, int thumb) {
    if (const auto scroll = ScrollOfBar(code)) Scroll(*scroll, thumb);
}

static void OnMouseWheel(HWND, int, int, int delta, UINT) {
    TurnWheel(thePassage, delta, thePassage.view.TopVerse, Scroll);
}

static void OnKeyDown(HWND window, UINT key, BOOL, int, UINT) {
    if (const auto scroll = ScrollOfKey(key)) Scroll(*scroll, 0);
    if (key == VK_LEFT) SendCommand(FrameOf(window), IDM_FOCUS_LIST);
}

static void OnSetFocus(HWND, HWND before) {
    PaneGotFocus(thePassage, kPassageOwns, before);
}

static void OnKillFocus(HWND, HWND) {
    PaneLostFocus(thePassage);
}

// The selection of words.

static SelectionPoint PointAt(int x, int y) {
    return HasText() ? HitTestPassage(CurrentFlow(), x, y) : SelectionPoint{};
}

static void StepTop(int by) {
    const int top = ClampVerse(thePassage.view.TopVerse + by);
    if (top != thePassage.view.TopVerse) ScrollToVerse(top);
}

static constexpr PaneSelecting kSelecting = {kPassageOwns, PointAt, StepTop};

static void OnLButtonDown(HWND, BOOL, int x, int y, UINT) {
    PressMouse(thePassage, kSelecting, x, y);
}

static void OnMouseMove(HWND, int x, int y, UINT keys) {
    DragMouse(thePassage, kSelecting, x, y, keys);
}

static void OnLButtonUp(HWND, int, int, UINT) {
    ReleaseMouse(thePassage);
}

static std::string TextOfSelection() {
    return PassageCopyText(theScripture, theReading, theFormat.Brackets != 0, theSelection);
}

static void OpenMenu(int x, int y) {
    OpenPassageMenu(FromCornerOf(thePassage.window, x, y));
}

static void OnRButtonUp(HWND, int x, int y, UINT) {
    FocusPane(thePassage);
    OpenMenu(x, y);
}

static void OnContextMenu(HWND window, HWND under, UINT x, UINT y) {
    if (IsMenuByKey(x, y)) return OpenMenu(kKeyMenuOffset, kKeyMenuOffset);
    FORWARD_WM_CONTEXTMENU(window, under, x, y, DefWindowProcA);
}

static void OnCommand(HWND window, int command, HWND, UINT) {
    static constexpr SelectedText kSelected = {kPassageOwns, TextOfSelection,
                                               "ReadWndCopyError -- Please notify the author!!"};
    if (RunSelectionCommand(window, kSelected, command)) return;
    if (IsFrameCommandOfPassage(command)) SendCommand(FrameOf(window), command);
}

static BOOL OnCreate(HWND window, CREATESTRUCTA*) {
    SetScrollRange(window, SB_VERT, 0, kLastVerse, FALSE);
    return TRUE;
}

static LRESULT CALLBACK PassageProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
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
        HANDLE_MSG(window, WM_RBUTTONUP, OnRButtonUp);
        HANDLE_MSG(window, WM_COMMAND, OnCommand);
        HANDLE_MSG(window, WM_CONTEXTMENU, OnContextMenu);
        case WM_CAPTURECHANGED: return ReleaseMouse(thePassage), 0;
        case WM_ERASEBKGND: return TRUE;  // the paint covers all of the pane
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

bool RegisterPassageClass() {
    return RegisterPaneClass(kPassageClass, PassageProcedure, COLOR_WINDOW);
}

HWND CreatePassage(HWND tabs) {
    thePassage.window =
        CreateChild(tabs, kPassageClass, "", WS_VISIBLE | WS_VSCROLL | WS_TABSTOP, WS_EX_CLIENTEDGE, IDC_PASSAGE);
    return thePassage.window;
}
