#include "win32/plain_text.h"

#include <algorithm>
#include <cstring>

#include "win32/wine.h"

static DWORD CALLBACK GiveText(DWORD_PTR cookie, LPBYTE buffer, LONG wanted, LONG* given) {
    auto& rest = *reinterpret_cast<std::u16string_view*>(cookie);
    const std::size_t count = std::min(rest.size(), static_cast<std::size_t>(wanted) / sizeof rest[0]);
    std::memcpy(buffer, rest.data(), count * sizeof rest[0]);
    rest.remove_prefix(count);
    *given = static_cast<LONG>(count * sizeof rest[0]);
    return 0;
}

static DWORD CALLBACK TakeText(DWORD_PTR cookie, LPBYTE buffer, LONG offered, LONG* taken) {
    reinterpret_cast<std::string*>(cookie)->append(reinterpret_cast<const char*>(buffer),
                                                   static_cast<std::size_t>(offered));
    *taken = offered;
    return 0;
}

static void StreamIn(HWND richEdit, std::u16string_view text) {
    EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&text), 0, GiveText};
    SendMessageA(richEdit, EM_STREAMIN, SF_TEXT | SF_UNICODE, reinterpret_cast<LPARAM>(&stream));
}

void WithoutRedraw(HWND richEdit, const std::function<void()>& work) {
    const bool isShown = (GetWindowLongPtrA(richEdit, GWL_STYLE) & WS_VISIBLE) != 0;
    if (isShown) SendMessageA(richEdit, WM_SETREDRAW, FALSE, 0);
    work();
    if (!isShown) return;
    SendMessageA(richEdit, WM_SETREDRAW, TRUE, 0);
    RedrawWindow(richEdit, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME);
}

void SetPlainText(HWND richEdit, std::u16string_view text) {
    WithoutRedraw(richEdit, [&] {
        StreamIn(richEdit, text);
        CHARRANGE none{0, 0};
        SendMessageA(richEdit, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&none));
        SendMessageA(richEdit, EM_SCROLLCARET, 0, 0);
        SendMessageA(richEdit, EM_EMPTYUNDOBUFFER, 0, 0);
        SendMessageA(richEdit, EM_SETMODIFY, FALSE, 0);
    });
}

bool IsRemovedSlowly(std::u16string_view text) {
    static constexpr std::ptrdiff_t kFew = 3000;
    const auto isPart = [](char16_t c) { return c == u'\t' || c == u'\r' || c == u'\n'; };
    return IsWine() && std::count_if(text.begin(), text.end(), isPart) > kFew;
}

void ScrollBackToText(HWND richEdit) {
    if (!IsWine()) return;
    SCROLLINFO bar{};
    bar.cbSize = sizeof bar;
    bar.fMask = SIF_RANGE | SIF_PAGE;
    POINT corner{};
    GetScrollInfo(richEdit, SB_VERT, &bar);
    SendMessageA(richEdit, EM_GETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&corner));
    const LONG lowest = std::max(bar.nMax - static_cast<int>(bar.nPage), 0);
    if (corner.y <= lowest) return;
    corner.y = lowest;
    SendMessageA(richEdit, EM_SETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&corner));
}

POINTL CornerOfCharacter(HWND richEdit, LONG place) {
    POINTL corner{};
    SendMessageA(richEdit, EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&corner), place);
    return corner;
}

LONG FirstVisibleCharacter(HWND richEdit) {
    const LRESULT line = SendMessageA(richEdit, EM_GETFIRSTVISIBLELINE, 0, 0);
    return static_cast<LONG>(SendMessageA(richEdit, EM_LINEINDEX, static_cast<WPARAM>(line), 0));
}

static void ScrollBy(HWND richEdit, LONG pixels) {
    POINT corner{};
    SendMessageA(richEdit, EM_GETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&corner));
    corner.y = std::max(corner.y + pixels, 0L);
    if (pixels != 0) SendMessageA(richEdit, EM_SETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&corner));
}

void ScrollToCharacter(HWND richEdit, LONG place) {
    RECT client{};
    GetClientRect(richEdit, &client);
    const LONG y = CornerOfCharacter(richEdit, place).y;
    if (y >= 0 && y < 2 * client.bottom / 3) return;
    ScrollBy(richEdit, y - client.bottom / 3);
    ScrollBackToText(richEdit);
}

void ScrollToTop(HWND richEdit, LONG place) {
    const LONG last = std::min(place, PlainTextLength(richEdit));
    if (FirstVisibleCharacter(richEdit) == last) return;
    ScrollBy(richEdit, CornerOfCharacter(richEdit, last).y);
    ScrollBackToText(richEdit);
}

static bool ShowsCaretToType(HWND richEdit) {
    if (GetWindowLongPtrA(richEdit, GWL_STYLE) & ES_READONLY) return false;
    RECT client{};
    GetClientRect(richEdit, &client);
    const LONG y = CornerOfCharacter(richEdit, SelectionStart(richEdit)).y;
    return y >= 0 && y < client.bottom;
}

void SetPlainTextFont(HWND richEdit, HFONT font) {
    const LONG first = FirstVisibleCharacter(richEdit);
    const LONG top = CornerOfCharacter(richEdit, first).y;
    const bool showsCaret = ShowsCaretToType(richEdit);
    SendMessageA(richEdit, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    ScrollBy(richEdit, CornerOfCharacter(richEdit, first).y - top);
    if (showsCaret) SendMessageA(richEdit, EM_SCROLLCARET, 0, 0);
}

static std::u16string StreamedOut(HWND richEdit, WPARAM format) {
    std::string bytes;
    EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&bytes), 0, TakeText};
    SendMessageA(richEdit, EM_STREAMOUT, format | SF_UNICODE, reinterpret_cast<LPARAM>(&stream));
    std::u16string text(bytes.size() / sizeof(char16_t), u'\0');
    std::memcpy(text.data(), bytes.data(), text.size() * sizeof(char16_t));
    return text;
}

std::u16string PlainText(HWND richEdit) {
    return StreamedOut(richEdit, SF_TEXT);
}

// Wine's control takes a stream at the end of the text for all of it, but not this message.
void ReplaceSelectedText(HWND richEdit, std::u16string_view text) {
    const std::u16string ended(text);
    SETTEXTEX how{ST_SELECTION | ST_KEEPUNDO, 1200};  // UTF-16
    SendMessageA(richEdit, EM_SETTEXTEX, reinterpret_cast<WPARAM>(&how), reinterpret_cast<LPARAM>(ended.c_str()));
}

LONG PlainTextLength(HWND richEdit) {
    GETTEXTLENGTHEX length{GTL_NUMCHARS, 1200};  // of UTF-16
    return static_cast<LONG>(SendMessageA(richEdit, EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&length), 0));
}

CHARRANGE SelectedPlainText(HWND richEdit) {
    CHARRANGE range{};
    SendMessageA(richEdit, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
    const LONG length = PlainTextLength(richEdit);
    return {std::clamp(range.cpMin, 0L, length), std::clamp(range.cpMax, 0L, length)};
}

std::u16string PlainTextOfSelection(HWND richEdit) {
    return StreamedOut(richEdit, SF_TEXT | SFF_SELECTION);
}

// ---- Places of the caret ------------------------------------------------------------------------------------------

static CHARRANGE SelectionOf(HWND richEdit) {
    CHARRANGE range{};
    SendMessageA(richEdit, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
    return range;
}

// In the code page, which is enough to know blanks and line ends: there is no message for less than all of the text in
// UTF-16.
static char CharacterAt(HWND richEdit, LONG place) {
    char bytes[8] = "";
    TEXTRANGEA range{{place, place + 1}, bytes};
    if (place >= 0) SendMessageA(richEdit, EM_GETTEXTRANGE, 0, reinterpret_cast<LPARAM>(&range));
    return bytes[0];
}

// The control regards CR CR LF as one line end, too.
static bool IsInLineEnd(HWND richEdit, LONG place) {
    if (CharacterAt(richEdit, place - 1) != '\r') return false;
    const char next = CharacterAt(richEdit, place);
    return next == '\n' || (next == '\r' && CharacterAt(richEdit, place + 1) == '\n');
}

// Half a letter is no character of any code page, so all of the text is only looked at beside two that are not in this
// one.
static bool IsInLetter(HWND richEdit, LONG place) {
    const auto mayBeHalf = [](char c) { return c == '?' || static_cast<unsigned char>(c) >= 0x80; };
    if (!mayBeHalf(CharacterAt(richEdit, place - 1)) || !mayBeHalf(CharacterAt(richEdit, place))) return false;
    if (CharacterAt(richEdit, place) != CharacterAt(richEdit, place - 1)) return false;
    const std::u16string text = PlainText(richEdit);
    const auto behind = static_cast<std::size_t>(place);
    return behind < text.size() && IS_SURROGATE_PAIR(text[behind - 1], text[behind]);
}

static bool IsInside(HWND richEdit, LONG place) {
    return IsInLineEnd(richEdit, place) || IsInLetter(richEdit, place);
}

static LONG PlaceInOrder(HWND richEdit, LONG place) {
    place = std::clamp(place, 0L, PlainTextLength(richEdit));
    while (IsInside(richEdit, place)) --place;
    return place;
}

void SelectLongLetter(HWND richEdit, bool isBefore) {
    const LONG caret = SelectionOf(richEdit).cpMin;
    CHARRANGE letter{isBefore ? caret - 2 : caret, isBefore ? caret : caret + 2};
    if (IsInLetter(richEdit, letter.cpMin + 1))
        SendMessageA(richEdit, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&letter));
}

bool IsSelectionInLineEnd(HWND richEdit) {
    const CHARRANGE range = SelectionOf(richEdit);
    return IsInside(richEdit, range.cpMin) || IsInside(richEdit, range.cpMax);
}

void PutSelectionInOrder(HWND richEdit) {
    const CHARRANGE range = SelectionOf(richEdit);
    CHARRANGE inOrder{PlaceInOrder(richEdit, range.cpMin), PlaceInOrder(richEdit, range.cpMax)};
    const bool isInOrder = inOrder.cpMin == range.cpMin && inOrder.cpMax == range.cpMax;
    if (!isInOrder) SendMessageA(richEdit, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&inOrder));
}

// `place`, or the end of the line above it if it is the start of a line that lies below `y`.
static LONG PlaceInLineAt(HWND richEdit, LONG place, int y) {
    const char before = CharacterAt(richEdit, place - 1);
    if (before != '\n' && before != '\r') return place;
    return y < CornerOfCharacter(richEdit, place).y ? PlaceInOrder(richEdit, place - 1) : place;
}

// `place`, or the one before a blank in front of it of whose left half `x` is. Wine may tell the same corner for both
// ends of a blank.
static LONG PlaceAtBlank(HWND richEdit, LONG place, int x) {
    if (CharacterAt(richEdit, place - 1) != ' ') return place;
    const POINTL left = CornerOfCharacter(richEdit, place - 1), right = CornerOfCharacter(richEdit, place);
    static constexpr LONG kLeastHalf = 3;  // pixels
    const LONG middle = std::max((left.x + right.x) / 2, left.x + kLeastHalf);
    return left.y == right.y && x < middle ? place - 1 : place;
}

void PutCaretWhereClicked(HWND richEdit, POINT point) {
    PutSelectionInOrder(richEdit);
    const CHARRANGE range = SelectionOf(richEdit);
    if (range.cpMin != range.cpMax) return;
    const LONG place = PlaceAtBlank(richEdit, PlaceInLineAt(richEdit, range.cpMin, point.y), point.x);
    CHARRANGE clicked{place, place};
    if (place != range.cpMin) SendMessageA(richEdit, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&clicked));
}

void KeepSelectionInLineAt(HWND richEdit, int y) {
    PutSelectionInOrder(richEdit);
    const CHARRANGE range = SelectionOf(richEdit);
    CHARRANGE kept{range.cpMin, std::max(range.cpMin, PlaceInLineAt(richEdit, range.cpMax, y))};
    if (kept.cpMax != range.cpMax) SendMessageA(richEdit, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&kept));
}

LONG SelectionStart(HWND richEdit) {
    return SelectionOf(richEdit).cpMin;
}
