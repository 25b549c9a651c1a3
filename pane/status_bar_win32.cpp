// Separate from the frame, which creates the bar, because the panes below the frame write to it.
#include "pane/status_bar_win32.h"

#include "resources/ids.h"
#include "win32/controls.h"

static std::string TextOfPart(HWND statusBar, WPARAM part) {
    const auto length = LOWORD(SendMessageA(statusBar, SB_GETTEXTLENGTHA, part, 0));
    std::string text(length + 1u, '\0');
    SendMessageA(statusBar, SB_GETTEXTA, part, reinterpret_cast<LPARAM>(text.data()));
    text.resize(length);
    return text;
}

static HWND StatusBarOf(HWND window) {
    return GetDlgItem(FrameOf(window), IDC_STATUS_BAR);
}

std::string StatusText(HWND window, StatusPart part) {
    return TextOfPart(StatusBarOf(window), static_cast<WPARAM>(part));
}

void ShowStatus(HWND window, StatusPart part, const std::string& text) {
    const HWND statusBar = StatusBarOf(window);
    const auto number = static_cast<WPARAM>(part);
    if (TextOfPart(statusBar, number) == text) return;
    SendMessageA(statusBar, SB_SETTEXTA, number, reinterpret_cast<LPARAM>(text.c_str()));
}
