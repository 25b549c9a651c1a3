#include "app/about_dialog.h"

#include "win32/dialogs.h"

static void OnCommand(HWND dialog, int control, UINT) {
    if (control == IDOK) EndDialog(dialog, IDOK);
}

void OpenAbout(HWND frame) {
    RunDialog(frame, {"ABOUT", nullptr, OnCommand});
}
