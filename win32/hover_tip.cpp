#include "win32/hover_tip.h"

#include <algorithm>

#include "win32/dpi.h"

#include <commctrl.h>  // needs the Windows headers

// The system places the tip only where it is told to (TTF_ABSOLUTE).
static TTTOOLINFOA ToolOf(HWND owner) {
    TTTOOLINFOA tool{};
    tool.cbSize = TTTOOLINFOA_V2_SIZE;
    tool.uFlags = TTF_IDISHWND | TTF_TRACK | TTF_ABSOLUTE | TTF_TRANSPARENT;
    tool.hwnd = owner;
    tool.uId = reinterpret_cast<UINT_PTR>(owner);
    return tool;
}

static LRESULT Send(const HoverTip& tip, UINT message, WPARAM wParam, const TTTOOLINFOA& tool) {
    return SendMessageA(tip.window, message, wParam, reinterpret_cast<LPARAM>(&tool));
}

static void Create(HoverTip& tip, HWND owner) {
    static char none[] = "";
    tip.window = CreateWindowExA(WS_EX_TOPMOST, TOOLTIPS_CLASSA, nullptr, WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, 0, 0,
                                 0, 0, owner, nullptr, GetModuleHandleA(nullptr), nullptr);
    TTTOOLINFOA tool = ToolOf(owner);
    tool.lpszText = none;
    Send(tip, TTM_ADDTOOLA, 0, tool);
}

// Not asked of the tip, which under Wine knows its size only when it is shown.
static SIZE SizeOf(const HoverTip& tip, const std::string& text, HFONT font) {
    const HDC dc = GetDC(tip.window);
    const HGDIOBJ before = SelectObject(dc, font);
    SIZE size{};
    GetTextExtentPoint32A(dc, text.c_str(), static_cast<int>(text.size()), &size);
    SelectObject(dc, before);
    ReleaseDC(tip.window, dc);
    RECT place{0, 0, size.cx, size.cy};
    SendMessageA(tip.window, TTM_ADJUSTRECT, TRUE, reinterpret_cast<LPARAM>(&place));
    return {place.right - place.left, place.bottom - place.top};
}

static RECT WorkAreaAt(const RECT& place) {
    MONITORINFO screen{};
    screen.cbSize = sizeof screen;
    GetMonitorInfoA(MonitorFromRect(&place, MONITOR_DEFAULTTONEAREST), &screen);
    return screen.rcWork;
}

// The upper left corner of a tip of this size.
static POINT Beside(const RECT& place, const SIZE& size, int gap) {
    const RECT room = WorkAreaAt(place);
    const LONG right = place.right + gap, left = place.left - gap - size.cx;
    const LONG middle = (place.top + place.bottom - size.cy) / 2;
    return {right + size.cx <= room.right ? right : left,
            std::clamp(middle, room.top, std::max(room.top, room.bottom - size.cy))};
}

void ShowHoverTip(HoverTip& tip, HWND owner, const std::string& text, const RECT& place) {
    static constexpr int kGap = 4;
    if (!tip.window) Create(tip, owner);
    const HFONT font = StatusFont(owner);
    SendMessageA(tip.window, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    TTTOOLINFOA tool = ToolOf(owner);
    tool.lpszText = const_cast<char*>(text.c_str());
    Send(tip, TTM_UPDATETIPTEXTA, 0, tool);
    const POINT corner = Beside(place, SizeOf(tip, text, font), Scaled(owner, kGap));
    SendMessageA(tip.window, TTM_TRACKPOSITION, 0, MAKELPARAM(corner.x, corner.y));
    Send(tip, TTM_TRACKACTIVATE, TRUE, tool);
}

void HideHoverTip(const HoverTip& tip, HWND owner) {
    if (tip.window) Send(tip, TTM_TRACKACTIVATE, FALSE, ToolOf(owner));
}
