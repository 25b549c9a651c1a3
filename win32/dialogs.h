// Modal dialogs.
#pragma once

#include "win32/windows_api.h"

struct Dialog {
    const char* name;           // in the program's resources
    void (*fill)(HWND dialog);  // before it is shown; none where there is nothing to fill
    void (*command)(HWND dialog, int control, UINT notification);
    const void* data = nullptr;  // for these two, see DataOf
};

// Runs `dialog` over `owner`, placed over the frame's middle. Cancel ends it after `command` has heard of it. Gives
// what it ended with; -1 when it could not be opened. F1 presses the button IDHELP, where there is one.
INT_PTR RunDialog(HWND owner, const Dialog& dialog);

// `data` of the dialog that is open as `dialog`.
const void* DataOf(HWND dialog);
