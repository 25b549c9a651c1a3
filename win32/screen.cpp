#include "win32/screen.h"

#include <algorithm>
#include <vector>

#include "win32/dpi.h"
#include "win32/placement.h"

static MONITORINFO MonitorOf(HWND window) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoA(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor;
}

static RECT ScreenOf(HWND window) {
    return MonitorOf(window).rcMonitor;
}

static HWND OwnerOf(HWND dialog) {
    return GetAncestor(GetWindow(dialog, GW_OWNER), GA_ROOTOWNER);
}

bool FitsOwnersWorkArea(HWND dialog) {
    const RECT area = MonitorOf(OwnerOf(dialog)).rcWork;
    RECT box{};
    GetWindowRect(dialog, &box);
    return box.right - box.left <= area.right - area.left && box.bottom - box.top <= area.bottom - area.top;
}

void PlaceDialog(HWND dialog) {
    const HWND owner = OwnerOf(dialog);
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
    const RECT screen = ScreenOf(window);
    const LONG x = (screen.left + screen.right - (place.right - place.left)) / 2;
    const LONG y = (screen.top + screen.bottom - (place.bottom - place.top)) / 2;
    SetWindowPos(window, nullptr, static_cast<int>(x), static_cast<int>(y), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
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
    const int border = SystemMetric(window, SM_CXSIZEFRAME) + SystemMetric(window, SM_CXPADDEDBORDER);
    const ScreenArea before = AreaOf(place), after = BroughtInside(before, border, WorkAreas());
    if (after == before) return;
    SetWindowPos(window, nullptr, after.left, after.top, after.right - after.left, after.bottom - after.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}
