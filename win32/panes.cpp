#include "win32/panes.h"

#include "win32/screen.h"

bool RegisterPaneClass(const char* name, WNDPROC procedure, int backgroundColor) {
    WNDCLASSA description{};
    description.style = CS_HREDRAW | CS_VREDRAW;
    description.lpfnWndProc = procedure;
    description.hInstance = GetModuleHandleA(nullptr);
    description.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    description.hbrBackground = GetSysColorBrush(backgroundColor);
    description.lpszClassName = name;
    return RegisterClassA(&description) != 0;
}

HWND CreateChild(HWND parent, const char* className, const char* text, DWORD style, DWORD extendedStyle, int id) {
    return CreateWindowExA(extendedStyle, className, text, WS_CHILD | style, 0, 0, 0, 0, parent,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleA(nullptr), nullptr);
}

WNDPROC Subclass(HWND window, WNDPROC procedure) {
    return reinterpret_cast<WNDPROC>(SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure)));
}

void Unsubclass(HWND window, WNDPROC& procedureBefore) {
    if (procedureBefore) Subclass(window, procedureBefore);
    procedureBefore = nullptr;
}

void ShowPaneCaret(HWND pane, int lineHeight) {
    CreateCaret(pane, nullptr, Scaled(3), lineHeight);
    SetCaretPos(0, 0);
    ShowCaret(pane);
}
