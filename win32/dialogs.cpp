#include "win32/dialogs.h"

INT_PTR RunDialog(HWND owner, const char* name, DLGPROC procedure, LPARAM parameter) {
    return DialogBoxParamA(GetModuleHandleA(nullptr), name, owner, procedure, parameter);
}
