#include "win32/dialogs.h"

#include "win32/controls.h"
#include "win32/dialog_templates.h"
#include "win32/dpi.h"
#include "win32/panes.h"
#include "win32/screen.h"

static const Dialog& DialogOf(HWND window) {
    return *reinterpret_cast<const Dialog*>(GetWindowLongPtrA(window, DWLP_USER));
}

const void* DataOf(HWND dialog) {
    return DialogOf(dialog).data;
}

static void FitListLines(HWND window) {
    for (const ListColumns& list : DialogOf(window).lists) FitLines(window, list);
}

namespace {

// A dialog that is about to be shown.
struct Opening {
    const Dialog* dialog = nullptr;
    int points = 0;           // of its font
    bool isTooLarge = false;  // it was ended before it was shown
};

}  // namespace

// Letters of which nobody could read smaller ones.
static bool CanBeSmaller(HWND window, const Opening& opening) {
    static constexpr int kLeastHeight = 11, kPointsPerInch = 72;  // pixels, on a screen that is not scaled
    return MulDiv(opening.points - 1, DpiOf(window), kPointsPerInch) >= kLeastHeight;
}

static BOOL OnInitDialog(HWND window, HWND, LPARAM data) {
    Opening& opening = *reinterpret_cast<Opening*>(data);
    opening.isTooLarge = !FitsOwnersWorkArea(window) && CanBeSmaller(window, opening);
    if (opening.isTooLarge) return !EndDialog(window, 0);  // and the focus stays where it is
    SetWindowLongPtrA(window, DWLP_USER, reinterpret_cast<LONG_PTR>(opening.dialog));
    PlaceDialog(window);
    FitListLines(window);
    if (DialogOf(window).fill) DialogOf(window).fill(window);
    return !IsChild(window, GetFocus());  // otherwise the system would select all of the focused field
}

// Is not set again while it is the same, because screen readers read what is set.
static void ShowMeaning(HWND window, const Meaning& shown) {
    const std::string text = shown.text(window, shown.field);
    const int enough = static_cast<int>(text.size()) + 1;
    if (ControlText(window, shown.line, enough) != text) SetDlgItemTextA(window, shown.line, text.c_str());
}

static void OnCommand(HWND window, int control, HWND, UINT notification) {
    const Meaning& shown = DialogOf(window).meaning;
    if (shown.text && control == shown.field && notification == EN_CHANGE) ShowMeaning(window, shown);
    DialogOf(window).command(window, control, notification);
    if (control == IDCANCEL) EndDialog(window, IDCANCEL);
}

// F1 presses the Help button.
static void OnHelp(HWND window) {
    const HWND button = GetDlgItem(window, IDHELP);
    if (button != nullptr) FORWARD_WM_COMMAND(window, IDHELP, button, BN_CLICKED, SendMessageA);
}

static constexpr UINT kRescaled = WM_APP;  // posted, because the system scales the dialog after this procedure returns

static void OnRescaled(HWND window) {
    FitListLines(window);
    if (DialogOf(window).rescaled) DialogOf(window).rescaled(window);
}

static void OnDrawItem(HWND window, const DRAWITEMSTRUCT* item) {
    for (const ListColumns& list : DialogOf(window).lists)
        if (item->CtlID == static_cast<UINT>(list.list)) DrawLine(window, list, *item);
}

// The controls read anew what they keep of the system's colours, fonts and themes.
static void FollowSystem(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    PassToAllChildren(window, message, wParam, lParam);
    if (message == WM_SETTINGCHANGE) return;
    if (DialogOf(window).recolored) DialogOf(window).recolored(window);
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

static INT_PTR CALLBACK DialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_INITDIALOG && GetWindowLongPtrA(window, DWLP_USER) == 0) return FALSE;  // during creation
    switch (message) {
        case WM_INITDIALOG: return HANDLE_WM_INITDIALOG(window, wParam, lParam, OnInitDialog);
        case WM_COMMAND: HANDLE_WM_COMMAND(window, wParam, lParam, OnCommand); return TRUE;
        case WM_DRAWITEM: HANDLE_WM_DRAWITEM(window, wParam, lParam, OnDrawItem); return TRUE;
        case WM_HELP: OnHelp(window); return TRUE;
        case WM_DPICHANGED: PostMessageA(window, kRescaled, 0, 0); return FALSE;
        case kRescaled: OnRescaled(window); return TRUE;
        case WM_SYSCOLORCHANGE:
        case WM_SETTINGCHANGE:
        case WM_THEMECHANGED: FollowSystem(window, message, wParam, lParam); return FALSE;
    }
    return FALSE;
}

// Wide, so that fields and lists can have letters that the code page lacks. A dialog that is larger than the screen
// would have its buttons out of reach, as with a scaling of 300 percent, so it is made again with smaller letters.
INT_PTR RunDialog(HWND owner, const Dialog& dialog) {
    DialogTemplate layout = LoadDialogTemplate(dialog.name);
    if (layout.empty()) return -1;
    WORD& points = FontPoints(layout);
    for (;; --points) {
        Opening opening{&dialog, points};
        const INT_PTR result =
            DialogBoxIndirectParamW(GetModuleHandleA(nullptr), reinterpret_cast<LPCDLGTEMPLATEW>(layout.data()), owner,
                                    DialogProcedure, reinterpret_cast<LPARAM>(&opening));
        if (!opening.isTooLarge) return result;
    }
}
