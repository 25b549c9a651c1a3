#include "app/about_dialog.h"

#include "win32/dialogs.h"
#include "win32/screen.h"

static BOOL OnInitDialog(HWND dialog, HWND, LPARAM) {
    PlaceDialog(dialog);
    return TRUE;
}

static void OnCommand(HWND dialog, int control, HWND, UINT) {
    if (control == IDOK || control == IDCANCEL) EndDialog(dialog, control);
}

static INT_PTR CALLBACK AboutProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_INITDIALOG:
            return HANDLE_WM_INITDIALOG(dialog, wParam, lParam, OnInitDialog);
        case WM_COMMAND:
            HANDLE_WM_COMMAND(dialog, wParam, lParam, OnCommand);
            return TRUE;
    }
    return FALSE;
}

void OpenAbout(HWND frame) {
    RunDialog(frame, "ABOUT", AboutProcedure);
}
