#include "win32/panes.h"

#include <algorithm>

#include "win32/dpi.h"

// Not GetSysColorBrush, whose result Wine replaces when the user changes the colours.
HBRUSH BackgroundOf(int systemColor) {
    return reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(systemColor) + 1);
}

bool RegisterPaneClass(const char* name, WNDPROC procedure, int backgroundColor, UINT style) {
    WNDCLASSA description{};
    description.style = CS_HREDRAW | CS_VREDRAW | style;
    description.lpfnWndProc = procedure;
    description.hInstance = GetModuleHandleA(nullptr);
    description.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    description.hbrBackground = BackgroundOf(backgroundColor);
    description.lpszClassName = name;
    return RegisterClassA(&description) != 0;
}

HWND CreateChild(HWND parent, const char* className, const char* text, DWORD style, DWORD extendedStyle, int id,
                 int width) {
    return CreateWindowExA(extendedStyle, className, text, WS_CHILD | style, 0, 0, width, 0, parent,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleA(nullptr), nullptr);
}

void ReplaceChild(HWND old, HWND fresh) {
    RECT place{};
    GetWindowRect(old, &place);
    MapWindowPoints(nullptr, GetParent(old), reinterpret_cast<POINT*>(&place), 2);
    const bool isShown = (GetWindowLongPtrA(old, GWL_STYLE) & WS_VISIBLE) != 0;
    SetWindowPos(fresh, old, static_cast<int>(place.left), static_cast<int>(place.top),
                 static_cast<int>(place.right - place.left), static_cast<int>(place.bottom - place.top),
                 SWP_NOACTIVATE | (isShown ? SWP_SHOWWINDOW : SWP_HIDEWINDOW));
    if (GetFocus() == old) SetFocus(fresh);
    DestroyWindow(old);
}

WNDPROC Subclass(HWND window, WNDPROC procedure) {
    return reinterpret_cast<WNDPROC>(SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure)));
}

void Unsubclass(HWND window, WNDPROC& procedureBefore) {
    if (procedureBefore) Subclass(window, procedureBefore);
    procedureBefore = nullptr;
}

void ShowPaneCaret(HWND pane, int lineHeight) {
    CreateCaret(pane, nullptr, Scaled(pane, 3), lineHeight);
    SetCaretPos(0, 0);
    ShowCaret(pane);
}

void FillWithColor(HDC dc, const RECT& area, COLORREF color) {
    SetDCBrushColor(dc, color);
    FillRect(dc, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

static BOOL CALLBACK PassToChild(HWND child, LPARAM passed) {
    const MSG& message = *reinterpret_cast<const MSG*>(passed);
    SendMessageA(child, message.message, message.wParam, message.lParam);
    return TRUE;
}

void PassToAllChildren(HWND parent, UINT message, WPARAM wParam, LPARAM lParam) {
    const MSG passed{parent, message, wParam, lParam, 0, {}};
    EnumChildWindows(parent, PassToChild, reinterpret_cast<LPARAM>(&passed));
}

// With 32 bits for a pixel, whatever the screen has. The memory of such a bitmap is free as soon as it is deleted; that
// of a bitmap compatible with the screen is in the heap under Wine, and the heap keeps it.
static OwnedBitmap BitmapToDrawOn(HDC target, int width, int height) {
    BITMAPINFO layout{};
    layout.bmiHeader.biSize = sizeof layout.bmiHeader;
    layout.bmiHeader.biWidth = width;
    layout.bmiHeader.biHeight = -height;  // from the top down
    layout.bmiHeader.biPlanes = 1;
    layout.bmiHeader.biBitCount = 32;
    void* pixels = nullptr;
    return OwnedBitmap(CreateDIBSection(target, &layout, DIB_RGB_COLORS, &pixels, nullptr, 0));
}

// It grows, because a pane being resized asks often, but not to more than twice of what is asked for.
static void Grow(Canvas& canvas, HDC target, int width, int height) {
    if (canvas.bitmapBefore) SelectObject(canvas.dc.get(), canvas.bitmapBefore);
    const int widest = std::max(width, canvas.width), highest = std::max(height, canvas.height);
    const bool isTooLarge = static_cast<long long>(widest) * highest > 2LL * width * height;
    canvas.width = isTooLarge ? width : widest;
    canvas.height = isTooLarge ? height : highest;
    canvas.bitmap.reset();  // before the new one, so that there are never two
    canvas.bitmap = BitmapToDrawOn(target, canvas.width, canvas.height);
    canvas.bitmapBefore = SelectObject(canvas.dc.get(), canvas.bitmap.get());
}

HDC CanvasFor(Canvas& canvas, HDC target, int width, int height) {
    if (!canvas.dc) canvas.dc.reset(CreateCompatibleDC(target));
    if (width > canvas.width || height > canvas.height) Grow(canvas, target, width, height);
    return canvas.dc.get();
}
