// Modal dialogs.
#pragma once

#include "win32/windows_api.h"

// Runs the dialog `name` of the program's resources over `owner`. Its procedure gets `parameter` with WM_INITDIALOG.
// Gives what the dialog ended with; -1 when it could not be opened.
INT_PTR RunDialog(HWND owner, const char* name, DLGPROC procedure, LPARAM parameter = 0);
