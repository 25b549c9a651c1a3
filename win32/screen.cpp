#include "win32/screen.h"

#include "win32/handles.h"

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

static int KeptOnScreen(int place, int size, int screenSize) {
    if (place < 0) return 0;
    return place + size > screenSize ? screenSize - size : place;
}

void PlaceDialog(HWND dialog) {
    RECT frame{}, box{};
    GetWindowRect(GetAncestor(GetWindow(dialog, GW_OWNER), GA_ROOTOWNER), &frame);
    GetWindowRect(dialog, &box);
    const int width = box.right - box.left;
    const int height = box.bottom - box.top;
    const int upperFrame = static_cast<int>((frame.bottom - frame.top) * 0.9);
    const int x = frame.left + (frame.right - frame.left - width) / 2;
    const int y = frame.top + (upperFrame - height) / 2;
    SetWindowPos(dialog, nullptr, KeptOnScreen(x, width, GetSystemMetrics(SM_CXSCREEN)),
                 KeptOnScreen(y, height, GetSystemMetrics(SM_CYSCREEN)), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void CenterOnScreen(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    const int x = (GetSystemMetrics(SM_CXSCREEN) - (place.right - place.left)) / 2;
    const int y = (GetSystemMetrics(SM_CYSCREEN) - (place.bottom - place.top)) / 2;
    SetWindowPos(window, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

bool IsOnScreen(const RECT& place) {
    return MonitorFromRect(&place, MONITOR_DEFAULTTONULL) != nullptr;
}
