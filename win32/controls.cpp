#include "win32/controls.h"

#include <vector>

#include "win32/code_page.h"

void Complain(HWND owner, const char* text, const char* caption) {
    Complain(owner, WideOfCodePage(text), caption);
}

void Complain(HWND owner, const std::wstring& text, const char* caption) {
    const bool starting = owner && !IsWindowVisible(owner);  // the splash may be in front of all windows
    MessageBoxW(owner, text.c_str(), WideOfCodePage(caption).c_str(),
                MB_OK | MB_ICONSTOP | (starting ? MB_SYSTEMMODAL : 0));
}

std::string ControlText(HWND dialog, int control, int limit) {
    std::string text(static_cast<std::size_t>(limit) + 1, '\0');
    text.resize(GetDlgItemTextA(dialog, control, text.data(), limit + 1));
    return text;
}

std::wstring WideControlText(HWND dialog, int control, int limit) {
    std::wstring text(static_cast<std::size_t>(limit) + 1, L'\0');
    text.resize(GetDlgItemTextW(dialog, control, text.data(), limit + 1));
    return text;
}

void SelectField(HWND dialog, int control) {
    SendMessageA(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(GetDlgItem(dialog, control)), TRUE);
    SendDlgItemMessageA(dialog, control, EM_SETSEL, 0, -1);
}

void PutCaretBehind(HWND dialog, int control) {
    const HWND field = GetDlgItem(dialog, control);
    const int end = GetWindowTextLengthA(field);
    SetFocus(field);
    SendMessageA(field, EM_SETSEL, static_cast<WPARAM>(end), end);
}

bool IsChecked(HWND dialog, int control) {
    return IsDlgButtonChecked(dialog, control) == BST_CHECKED;
}

void SetChecked(HWND dialog, int control, bool checked) {
    CheckDlgButton(dialog, control, checked ? BST_CHECKED : BST_UNCHECKED);
}

void StepFocus(HWND control) {
    SetFocus(GetNextDlgTabItem(GetParent(control), control, IsKeyDown(VK_SHIFT)));
}

HWND FrameOf(HWND window) {
    return GetAncestor(window, GA_ROOTOWNER);
}

void SendCommand(HWND frame, int command) {
    SendMessageA(frame, WM_COMMAND, static_cast<WPARAM>(command), 0);
}

void RunIfEnabled(HWND frame, int command) {
    const UINT state = GetMenuState(GetMenu(frame), static_cast<UINT>(command), MF_BYCOMMAND);
    if (!(state & (MF_GRAYED | MF_CHECKED))) SendCommand(frame, command);
}

void ShowAtOnce(HWND window) {
    UpdateWindow(window);
    MSG none;
    PeekMessageA(&none, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
}

bool IsKeyDown(int key) {
    return GetKeyState(key) < 0;
}

bool IsControlDown() {
    return IsKeyDown(VK_CONTROL) && !IsKeyDown(VK_MENU);
}

HCURSOR BeginWait(HWND frame) {
    SetCapture(frame);
    return SetCursor(LoadCursorA(nullptr, IDC_WAIT));
}

void EndWait(HCURSOR before) {
    SetCursor(before);
    ReleaseCapture();
}

void RouteWheel(MSG& message) {
    if (message.message != WM_MOUSEWHEEL || GetCapture()) return;
    const HWND under = WindowFromPoint({GET_X_LPARAM(message.lParam), GET_Y_LPARAM(message.lParam)});
    if (!under || GetWindowThreadProcessId(under, nullptr) != GetCurrentThreadId()) return;
    if (GetAncestor(under, GA_ROOT) == GetAncestor(message.hwnd, GA_ROOT)) message.hwnd = under;
}

// Any large number means a page: Wine returns a stored WHEEL_PAGESCROLL as the largest signed integer.
int WheelLines() {
    static constexpr UINT kMostLines = 1000;
    UINT lines = 3;
    SystemParametersInfoA(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    return lines > kMostLines ? kPageANotch : static_cast<int>(lines);
}
