// Separate from its users, the help viewer and the message loop, because it watches all messages of the program.
#include "win32/held_keys.h"

static bool isHeld = false;

// What a key leads to is a message of its own, without the key's repeat bit, if it is posted: the system turns F1 in a
// dialog into such a message. So the bit is kept until the next input.
void LookForHeldKey(const MSG& message) {
    switch (message.message) {
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN:
        case WM_CHAR:
        case WM_SYSCHAR: isHeld = (HIWORD(message.lParam) & KF_REPEAT) != 0; break;
        case WM_KEYUP:
        case WM_SYSKEYUP:
        case WM_LBUTTONDOWN:
        case WM_LBUTTONUP:
        case WM_COMMAND: isHeld = false; break;
    }
}

static LRESULT CALLBACK OnMessageOfSystemLoop(int code, WPARAM wParam, LPARAM message) {
    if (code >= 0) LookForHeldKey(*reinterpret_cast<const MSG*>(message));
    return CallNextHookEx(nullptr, code, wParam, message);
}

void WatchHeldKeys() {
    SetWindowsHookExA(WH_MSGFILTER, OnMessageOfSystemLoop, nullptr, GetCurrentThreadId());
}

bool IsHeldKey() {
    return isHeld;
}
