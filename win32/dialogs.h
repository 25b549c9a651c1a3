// Modal dialogs.
#pragma once

#include <span>
#include <string>

#include "win32/column_list.h"
#include "win32/windows_api.h"

// A static control that says what the text of a field means, when the dialog opens and at every change of the text.
struct Meaning {
    int field = 0;
    int line = 0;                                           // the static control
    std::string (*text)(HWND dialog, int field) = nullptr;  // null: there is no such line
};

struct Dialog {
    const char* name;  // in the program's resources
    // Called before the dialog is shown; null if there is nothing to fill in. The first control gets the focus, with
    // its text selected, unless this gives it to another one.
    void (*fill)(HWND dialog);
    void (*command)(HWND dialog, int control, UINT notification);
    const void* data = nullptr;  // for these two procedures, see DataOf
    Meaning meaning = {};        // of the text of one field
    // Called after the system has scaled the dialog for another screen, which gives the controls new fonts; null if
    // nothing else depends on these.
    void (*rescaled)(HWND dialog) = nullptr;
    // Called after the system's colours have changed; null if the dialog gives none of them to its controls.
    void (*recolored)(HWND dialog) = nullptr;
    std::span<const ListColumns> lists{};  // those with columns
};

// Runs `dialog` over `owner`, centred on the frame. One that would be larger than the screen without its task bar has a
// smaller font, down to letters of eleven pixels. Cancel closes it after `command` was called for it. Returns the
// result passed to EndDialog; -1 if it could not be opened. F1 presses the button IDHELP, if there is one.
INT_PTR RunDialog(HWND owner, const Dialog& dialog);

// `data` of the open dialog whose window is `dialog`.
const void* DataOf(HWND dialog);
