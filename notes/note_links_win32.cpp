#include "notes/note_links_win32.h"

#include <algorithm>
#include <optional>
#include <string>

#include "notes/note_files_win32.h"
#include "notes/references_of_note.h"
#include "resources/ids.h"
#include "scripture/scripture_win32.h"
#include "win32/controls.h"
#include "win32/dpi.h"
#include "win32/plain_text.h"

namespace {

struct NoteLinks {
    HWND tip = nullptr;      // the tool tip; null until one is needed
    bool isShown = false;    // it is visible
    LinkedView view{};       // that it is shown over
    int verse = kNoVerse;    // of the note that has the reference
    TextReference about{};   // the reference
    bool hasOpened = false;  // the last click has opened a reference
    int opened = kNoVerse;
};

// A reference in units of UTF-16, as the view counts.
struct Letters {
    LONG begin = 0, end = 0;
};

}  // namespace

static NoteLinks theLinks;

static const Chapters& TheChapters() {
    static const Chapters chapters = ChaptersOf(theScripture.records);
    return chapters;
}

static NoteOfVerse ShownNote() {
    return {theNoteSets.noteText, theNoteSets.currentVerse};
}

// The line that says that there is no note names a verse, too.
static bool HasNote() {
    return NoteExists(TheNoteFiles(), theNoteSets, theNoteSets.currentVerse);
}

// ---- The reference under the mouse ----------------------------------------------------------------------------------

static Letters LettersOf(const TextReference& reference) {
    const auto letters = [](std::size_t place) {
        return static_cast<LONG>(LettersBefore(TheNoteFiles().codePage, theNoteSets.noteText, place));
    };
    return {letters(reference.begin), letters(std::size_t{reference.begin} + reference.size)};
}

static LONG LineHeight(const LinkedView& view) {
    TEXTMETRICA letters{};
    const HDC dc = GetDC(view.window);
    const HGDIOBJ before = SelectObject(dc, view.font);
    GetTextMetricsA(dc, &letters);
    SelectObject(dc, before);
    ReleaseDC(view.window, dc);
    return letters.tmHeight;
}

// The control tells the character that is nearest to a point, however far that is.
static bool IsOver(const LinkedView& view, const Letters& letters, POINT point) {
    const LONG height = LineHeight(view);
    for (LONG place = letters.begin; place < letters.end; ++place) {
        const POINTL corner = CornerOfCharacter(view.window, place), next = CornerOfCharacter(view.window, place + 1);
        const LONG right = next.y == corner.y ? next.x : corner.x + height / 2;  // the last one of a line
        if (point.y >= corner.y && point.y < corner.y + height && point.x >= corner.x && point.x < right) return true;
    }
    return false;
}

static std::optional<TextReference> ReferenceAtLetter(LONG letter) {
    const std::size_t place =
        PlaceBehind(TheNoteFiles().codePage, theNoteSets.noteText, static_cast<std::size_t>(std::max(letter, 0L)));
    return ReferenceInNote(theScripture.records, TheChapters(), ShownNote(), place);
}

// On the right half of a character, the next one is the nearest.
static std::optional<TextReference> ReferenceUnder(const LinkedView& view, POINT point) {
    if (!HasNote()) return std::nullopt;
    POINTL at{point.x, point.y};
    const auto nearest = static_cast<LONG>(SendMessageA(view.window, EM_CHARFROMPOS, 0, reinterpret_cast<LPARAM>(&at)));
    for (const LONG letter : {nearest, nearest - 1}) {
        const std::optional<TextReference> reference = ReferenceAtLetter(letter);
        if (reference && IsOver(view, LettersOf(*reference), point)) return reference;
    }
    return std::nullopt;
}

static std::optional<TextReference> LinkUnderMouse(const LinkedView& view) {
    POINT point{};
    if (!IsControlDown() || !GetCursorPos(&point) || WindowFromPoint(point) != view.window) return std::nullopt;
    ScreenToClient(view.window, &point);
    return ReferenceUnder(view, point);
}

// ---- The tool tip ---------------------------------------------------------------------------------------------------

static TTTOOLINFOA ToolOf(HWND view, char* text) {
    TTTOOLINFOA tool{};
    tool.cbSize = TTTOOLINFOA_V1_SIZE;  // known to each version of the controls
    tool.uFlags = TTF_TRACK | TTF_ABSOLUTE | TTF_TRANSPARENT;
    tool.hwnd = FrameOf(view);  // the view may be replaced by another one
    tool.lpszText = text;
    return tool;
}

static void CreateTip(HWND view) {
    static constexpr DWORD kStyle = WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX;
    static char nothing[] = "";
    theLinks.tip =
        CreateWindowExA(WS_EX_TOPMOST, TOOLTIPS_CLASSA, nullptr, kStyle, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                        CW_USEDEFAULT, FrameOf(view), nullptr, GetModuleHandleA(nullptr), nullptr);
    const TTTOOLINFOA tool = ToolOf(view, nothing);
    SendMessageA(theLinks.tip, TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
}

static RECT WorkAreaAt(POINT point) {
    MONITORINFO screen{};
    screen.cbSize = sizeof screen;
    GetMonitorInfoA(MonitorFromPoint(point, MONITOR_DEFAULTTONEAREST), &screen);
    return screen.rcWork;
}

// Below the reference, or above it if there is no room.
static POINT PlaceOfTip(const LinkedView& view, const TextReference& reference, SIZE size) {
    const LONG height = LineHeight(view);
    const POINTL corner = CornerOfCharacter(view.window, LettersOf(reference).begin);
    POINT place{corner.x, corner.y + height + Scaled(view.window, 4)};
    ClientToScreen(view.window, &place);
    const RECT area = WorkAreaAt(place);
    if (place.y + size.cy > area.bottom) place.y -= height + 2 * Scaled(view.window, 4) + size.cy;
    place.x = std::max(std::min(place.x, area.right - size.cx), area.left);
    return place;
}

static void ShowTip(const LinkedView& view, const TextReference& reference) {
    static constexpr int kWidth = 400;  // pixels at 96 dpi
    if (theLinks.tip == nullptr) CreateTip(view.window);
    std::string text = TextOfReference(theScripture, reference);
    const TTTOOLINFOA tool = ToolOf(view.window, text.data());
    const auto tell = [&tool](UINT message, WPARAM wParam) {
        return SendMessageA(theLinks.tip, message, wParam, reinterpret_cast<LPARAM>(&tool));
    };
    SendMessageA(theLinks.tip, TTM_SETMAXTIPWIDTH, 0, Scaled(view.window, kWidth));
    tell(TTM_UPDATETIPTEXTA, 0);
    const LRESULT size = tell(TTM_GETBUBBLESIZE, 0);
    const POINT place = PlaceOfTip(view, reference, {LOWORD(size), HIWORD(size)});
    SendMessageA(theLinks.tip, TTM_TRACKPOSITION, 0, MAKELPARAM(place.x, place.y));
    tell(TTM_TRACKACTIVATE, TRUE);
}

static void HideTip(HWND view) {
    static char nothing[] = "";
    if (!theLinks.isShown) return;
    theLinks.isShown = false;
    const TTTOOLINFOA tool = ToolOf(view, nothing);
    SendMessageA(theLinks.tip, TTM_TRACKACTIVATE, FALSE, reinterpret_cast<LPARAM>(&tool));
}

static bool IsAbout(const TextReference& reference) {
    const TextReference& about = theLinks.about;
    return theLinks.isShown && theLinks.verse == theNoteSets.currentVerse && about.begin == reference.begin &&
           about.size == reference.size && about.first == reference.first && about.last == reference.last;
}

static void CALLBACK OnTimer(HWND view, UINT, UINT_PTR timer, DWORD) {
    const std::optional<TextReference> link = LinkUnderMouse(theLinks.view);
    if (link && IsAbout(*link)) return;
    KillTimer(view, timer);
    HideTip(view);
}

// No message tells that the mouse or Ctrl has gone while another program has the focus, so the timer looks.
static void KeepTip(const LinkedView& view, const TextReference& reference) {
    static constexpr UINT_PTR kTimer = 1;
    static constexpr UINT kPause = 100;  // milliseconds
    if (IsAbout(reference)) return;
    ShowTip(view, reference);
    theLinks.isShown = true;
    theLinks.view = view;
    theLinks.verse = theNoteSets.currentVerse;
    theLinks.about = reference;
    SetTimer(view.window, kTimer, kPause, OnTimer);
}

// ---- Messages -------------------------------------------------------------------------------------------------------

static bool OnSetCursor(const LinkedView& view, LPARAM lParam) {
    const std::optional<TextReference> link =
        LOWORD(lParam) == HTCLIENT ? LinkUnderMouse(view) : std::optional<TextReference>();
    if (!link) {
        HideTip(view.window);
        return false;
    }
    SetCursor(LoadCursorA(nullptr, IDC_HAND));
    KeepTip(view, *link);
    return true;
}

// The frame is told later, because it may show another note, for which the view may be replaced.
static bool OnButtonDown(const LinkedView& view, WPARAM keys, POINT point) {
    theLinks.hasOpened = false;
    if ((keys & MK_CONTROL) == 0) return false;
    const std::optional<TextReference> link = ReferenceUnder(view, point);
    if (!link) return false;
    HideTip(view.window);
    if (GetFocus() != view.window) SetFocus(view.window);
    theLinks.hasOpened = true;
    theLinks.opened = link->first;
    PostMessageA(FrameOf(view.window), WM_COMMAND, IDM_OPEN_REFERENCE, 0);
    return true;
}

bool FollowLinks(const LinkedView& view, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SETCURSOR: return OnSetCursor(view, lParam);
        case WM_LBUTTONDOWN: return OnButtonDown(view, wParam, {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
        case WM_LBUTTONDBLCLK:  // that click's second one, perhaps in another note
        case WM_LBUTTONUP: return theLinks.hasOpened;
    }
    return false;
}

int OpenedReference() {
    return theLinks.opened;
}

void FollowControlKey(HWND view, const MSG& message) {
    if ((message.message != WM_KEYDOWN && message.message != WM_KEYUP) || message.wParam != VK_CONTROL) return;
    const bool isRepeated = message.message == WM_KEYDOWN && (HIWORD(message.lParam) & KF_REPEAT) != 0;
    POINT point{};
    if (isRepeated || !GetCursorPos(&point) || WindowFromPoint(point) != view) return;
    SendMessageA(view, WM_SETCURSOR, reinterpret_cast<WPARAM>(view), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
}

void ScrollToReferenceThatNames(HWND view, int verse) {
    if (!HasNote()) return;
    const auto reference = ReferenceThatNames(theScripture.records, TheChapters(), ShownNote(), verse);
    if (!reference) return;
    const LONG begin = LettersOf(*reference).begin;
    CHARRANGE caret{begin, begin};
    SendMessageA(view, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&caret));
    ScrollToCharacter(view, begin);
}
