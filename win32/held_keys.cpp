// Separate from its users, the help viewer and the start, because it watches all messages of the program.
#include "win32/held_keys.h"

#include "win32/windows_api.h"

static bool isHeld = false;

// What a key leads to is a message of its own, without the key's repeat bit, if it is posted: the system turns F1 in a
// dialog into such a message. So the bit is kept until the next input.
static void Look(const MSG& message) {
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

static LRESULT CALLBACK OnMessageTaken(int code, WPARAM removed, LPARAM message) {
    if (code == HC_ACTION && removed == PM_REMOVE) Look(*reinterpret_cast<const MSG*>(message));
    return CallNextHookEx(nullptr, code, removed, message);
}

void WatchHeldKeys() {
    SetWindowsHookExA(WH_GETMESSAGE, OnMessageTaken, nullptr, GetCurrentThreadId());
}

bool IsHeldKey() {
    return isHeld;
}
