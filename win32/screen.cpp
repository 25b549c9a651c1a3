#include "win32/screen.h"

#include <algorithm>
#include <vector>

#include "win32/handles.h"
#include "win32/placement.h"

static int ScreenDotsPerInch() {
    const HDC screen = GetDC(nullptr);
    const int dots = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return dots;
}

static int DotsPerInch() {
    static const int dots = ScreenDotsPerInch();  // system DPI awareness: constant while the program runs
    return dots;
}

int Scaled(int pixels) {
    return MulDiv(pixels, DotsPerInch(), 96);
}

int Unscaled(int pixels) {
    return MulDiv(pixels, 96, DotsPerInch());
}

static HFONT MakeMessageFont() {
    NONCLIENTMETRICSA metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    return CreateFontIndirectA(&metrics.lfMessageFont);
}

HFONT MessageFont() {
    static const OwnedFont font(MakeMessageFont());
    return font.get();
}

static RECT ScreenOf(HWND window) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoA(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor.rcMonitor;
}

void PlaceDialog(HWND dialog) {
    const HWND owner = GetAncestor(GetWindow(dialog, GW_OWNER), GA_ROOTOWNER);
    RECT frame{}, box{};
    GetWindowRect(owner, &frame);
    GetWindowRect(dialog, &box);
    const RECT screen = ScreenOf(owner);
    const int width = box.right - box.left;
    const int height = box.bottom - box.top;
    const int upperFrame = static_cast<int>((frame.bottom - frame.top) * 0.9);
    const int x = frame.left + (frame.right - frame.left - width) / 2;
    const int y = frame.top + (upperFrame - height) / 2;
    SetWindowPos(dialog, nullptr, KeptBetween(x, width, screen.left, screen.right),
                 KeptBetween(y, height, screen.top, screen.bottom), 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void CenterOnScreen(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    const int x = (GetSystemMetrics(SM_CXSCREEN) - (place.right - place.left)) / 2;
    const int y = (GetSystemMetrics(SM_CYSCREEN) - (place.bottom - place.top)) / 2;
    SetWindowPos(window, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

static ScreenArea AreaOf(const RECT& place) {
    return {static_cast<int>(place.left), static_cast<int>(place.top), static_cast<int>(place.right),
            static_cast<int>(place.bottom)};
}

static BOOL CALLBACK AddWorkArea(HMONITOR screen, HDC, RECT*, LPARAM areas) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    if (GetMonitorInfoA(screen, &monitor))
        reinterpret_cast<std::vector<ScreenArea>*>(areas)->push_back(AreaOf(monitor.rcWork));
    return TRUE;
}

static std::vector<ScreenArea> WorkAreas() {
    std::vector<ScreenArea> areas;
    EnumDisplayMonitors(nullptr, nullptr, AddWorkArea, reinterpret_cast<LPARAM>(&areas));
    return areas;
}

void BringOnScreen(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    const int border = GetSystemMetrics(SM_CXSIZEFRAME) + GetSystemMetrics(SM_CXPADDEDBORDER);
    const ScreenArea before = AreaOf(place), after = BroughtInside(before, border, WorkAreas());
    if (after == before) return;
    SetWindowPos(window, nullptr, after.left, after.top, after.right - after.left, after.bottom - after.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}
