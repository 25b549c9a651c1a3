// A small program with known contents to test the driver with. It uses ids of the real program, so that the driver
// finds its toolbar and status bar.

#include <cstdio>
#include <cstring>
#include <initializer_list>

#include <windows.h>

#include <commctrl.h>
#include <richedit.h>

#include "resources/ids.h"

static constexpr char kFrameClass[] = "DriverSample";
static constexpr int kOpenDialog = 201;
static constexpr int kBusy = 202;
static constexpr int kTick = 203;
static constexpr int kGreyed = 204;
static constexpr int kList = 21;
static constexpr int kCombo = 22;
static constexpr int kField = 31;

static void SayInStatus(HWND frame, int part, const char* text) {
    SendDlgItemMessageA(frame, IDC_STATUS_BAR, SB_SETTEXTA, static_cast<WPARAM>(part), reinterpret_cast<LPARAM>(text));
}

static HWND MakeChild(HWND parent, const char* className, DWORD style, int id, RECT place) {
    return CreateWindowExA(0, className, "", WS_CHILD | WS_VISIBLE | style, place.left, place.top, place.right,
                           place.bottom, parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
}

static HMENU MakeMenu() {
    const HMENU bar = CreateMenu();
    const HMENU popup = CreatePopupMenu();
    AppendMenuA(popup, MF_STRING, kOpenDialog, "&Open...\tAlt+O");
    AppendMenuA(popup, MF_SEPARATOR, 0, nullptr);
    AppendMenuA(popup, MF_STRING | MF_GRAYED, kGreyed, "&Greyed");
    AppendMenuA(popup, MF_STRING, kTick, "&Tick");
    AppendMenuA(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(popup), "&Sample");
    AppendMenuA(bar, MF_STRING, IDM_EXIT, "E&xit");
    return bar;
}

static void MakeToolbar(HWND frame) {
    static const TBBUTTON buttons[] = {
        {0, IDM_COPY, TBSTATE_ENABLED, TBSTYLE_BUTTON, {}, 0, 0},
        {0, 0, 0, TBSTYLE_SEP, {}, 0, 0},
        {1, IDM_PASTE, TBSTATE_INDETERMINATE, TBSTYLE_BUTTON, {}, 0, 0},
        {2, IDM_VIEW_LIST, TBSTATE_ENABLED | TBSTATE_CHECKED, TBSTYLE_CHECK, {}, 0, 0},
    };
    CreateToolbarEx(frame, WS_CHILD | WS_VISIBLE | TBSTYLE_TOOLTIPS, IDC_TOOLBAR, 15, HINST_COMMCTRL,
                    IDB_STD_SMALL_COLOR, buttons, ARRAYSIZE(buttons), 16, 16, 16, 16, sizeof(TBBUTTON));
}

static void MakeControls(HWND frame) {
    MakeToolbar(frame);
    MakeChild(frame, STATUSCLASSNAMEA, 0, IDC_STATUS_BAR, {});
    int edges[] = {200, 400, -1};
    SendDlgItemMessageA(frame, IDC_STATUS_BAR, SB_SETPARTS, 3, reinterpret_cast<LPARAM>(edges));
    const HWND tabs = MakeChild(frame, WC_TABCONTROLA, 0, IDC_LIST_TABS, {0, 40, 300, 150});
    for (const char* label : {"First tab", "Second tab"}) {
        char text[32];
        std::strcpy(text, label);
        TCITEMA item{};
        item.mask = TCIF_TEXT;
        item.pszText = text;
        SendMessageA(tabs, TCM_INSERTITEMA, 2, reinterpret_cast<LPARAM>(&item));
    }
    const HWND list =
        MakeChild(frame, "LISTBOX", WS_BORDER | WS_VSCROLL | LBS_NOINTEGRALHEIGHT, kList, {310, 40, 150, 60});
    for (const char* line : {"Genesis", "Exodus", "\xB6 Leviticus", "Numbers", "Deuteronomy", "Joshua"})
        SendMessageA(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line));
    const HWND combo = MakeChild(frame, "COMBOBOX", CBS_DROPDOWN | WS_VSCROLL, kCombo, {310, 120, 150, 100});
    for (const char* line : {"grace", "the"}) SendMessageA(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line));
    MakeChild(frame, "RICHEDIT", WS_BORDER | ES_MULTILINE, IDC_NOTE_VIEW, {0, 200, 460, 80});
    SetFocus(GetDlgItem(frame, IDC_NOTE_VIEW));
}

static INT_PTR CALLBACK DialogProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_INITDIALOG) return TRUE;
    if (message != WM_COMMAND || (wParam != IDOK && wParam != IDCANCEL)) return FALSE;
    char text[64];
    GetDlgItemTextA(dialog, kField, text, sizeof text);
    SayInStatus(GetParent(dialog), 0, wParam == IDOK ? text : "cancelled");
    if (std::strcmp(text, "complain") == 0 && wParam == IDOK) {
        MessageBoxA(dialog, "First line.\nSecond \"line\".", "Complaint", MB_ICONSTOP | MB_OKCANCEL);
        return TRUE;
    }
    EndDialog(dialog, 0);
    return TRUE;
}

namespace {

// Writes a dialog template in memory: a header, then each control on a four-byte boundary; texts are UTF-16.
struct TemplateWriter {
    WORD words[256] = {};
    WORD* at = words;
};

}  // namespace

static void Put(TemplateWriter& to, DWORD value) {
    *to.at++ = LOWORD(value);
    *to.at++ = HIWORD(value);
}

static void PutText(TemplateWriter& to, const char* text) {
    do *to.at++ = static_cast<unsigned char>(*text);
    while (*text++ != '\0');
}

static void PutControl(TemplateWriter& to, DWORD style, WORD x, WORD y, WORD width, WORD id, WORD atom,
                       const char* text) {
    if ((to.at - to.words) % 2 != 0) ++to.at;
    Put(to, style | WS_CHILD | WS_VISIBLE | WS_TABSTOP);
    Put(to, 0);
    for (const WORD word : {x, y, width, WORD{14}, id, WORD{0xFFFF}, atom}) *to.at++ = static_cast<WORD>(word);
    PutText(to, text);
    *to.at++ = 0;
}

static void OpenDialog(HWND frame) {
    constexpr WORD kButtonAtom = 0x0080;
    constexpr WORD kEditAtom = 0x0081;
    TemplateWriter to;
    Put(to, WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_VISIBLE | DS_MODALFRAME);
    Put(to, 0);
    for (const int word : {4, 10, 10, 160, 60, 0, 0}) *to.at++ = static_cast<WORD>(word);
    PutText(to, "Sample Dialog");
    PutControl(to, WS_BORDER, 8, 8, 100, kField, kEditAtom, "");
    PutControl(to, BS_AUTOCHECKBOX, 8, 26, 60, 32, kButtonAtom, "&Whole");
    PutControl(to, BS_DEFPUSHBUTTON, 8, 42, 40, IDOK, kButtonAtom, "OK");
    PutControl(to, BS_PUSHBUTTON, 60, 42, 40, IDCANCEL, kButtonAtom, "Cancel");
    DialogBoxIndirectParamA(nullptr, reinterpret_cast<LPCDLGTEMPLATEA>(to.words), frame, DialogProcedure, 0);
}

static void SayTime(HWND frame) {
    SYSTEMTIME now;
    GetLocalTime(&now);
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d", now.wYear, now.wMonth, now.wDay);
    SayInStatus(frame, 2, text);
}

static void OnMouse(HWND frame, const char* what, LPARAM lParam) {
    char text[64];
    std::snprintf(text, sizeof text, "%s %d,%d", what, LOWORD(lParam), HIWORD(lParam));
    SayInStatus(frame, 1, text);
}

static void OnCommand(HWND frame, int command) {
    if (command == kOpenDialog) OpenDialog(frame);
    if (command == kTick) CheckMenuItem(GetMenu(frame), kTick, MF_CHECKED);
    if (command == IDM_EXIT) DestroyWindow(frame);
    if (command == kBusy) {
        Sleep(700);
        SayInStatus(frame, 0, "was busy");
    }
}

static LRESULT OnNotify(LPARAM lParam) {
    auto* notice = reinterpret_cast<NMTTDISPINFOA*>(lParam);
    if (notice->hdr.code == TTN_GETDISPINFOA)
        std::strcpy(notice->szText, notice->hdr.idFrom == IDM_COPY ? "Copy it" : "");
    return 0;
}

static LRESULT CALLBACK FrameProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CREATE: MakeControls(window); return 0;
        case WM_COMMAND: OnCommand(window, LOWORD(wParam)); return 0;
        case WM_NOTIFY: return OnNotify(lParam);
        case WM_LBUTTONDOWN: OnMouse(window, "down", lParam); return 0;
        case WM_LBUTTONUP: OnMouse(window, "up", lParam); return 0;
        case WM_LBUTTONDBLCLK: OnMouse(window, "double", lParam); return 0;
        case WM_RBUTTONDOWN: OnMouse(window, "right", lParam); return 0;
        case WM_DESTROY: PostQuitMessage(7); return 0;
        default: return DefWindowProcA(window, message, wParam, lParam);
    }
}

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int showState) {
    InitCommonControls();
    LoadLibraryA("RICHED32.DLL");
    WNDCLASSA frameClass{};
    frameClass.style = CS_DBLCLKS;
    frameClass.lpfnWndProc = FrameProcedure;
    frameClass.hInstance = instance;
    frameClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    frameClass.lpszClassName = kFrameClass;
    RegisterClassA(&frameClass);
    const HWND frame = CreateWindowExA(0, kFrameClass, "Driver sample", WS_OVERLAPPEDWINDOW, 50, 60, 600, 500, nullptr,
                                       MakeMenu(), instance, nullptr);
    ShowWindow(frame, showState);
    SayTime(frame);
    SetFocus(GetDlgItem(frame, IDC_NOTE_VIEW));
    ACCEL keys[] = {{FALT | FVIRTKEY, 'O', kOpenDialog}, {FVIRTKEY, VK_F9, kBusy}};
    const HACCEL accelerators = CreateAcceleratorTableA(keys, ARRAYSIZE(keys));
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        if (TranslateAcceleratorA(frame, accelerators, &message) != 0) {
            // Otherwise, under Wine, releasing Alt would open the menu.
            if (message.message == WM_SYSKEYDOWN)
                DefWindowProcA(frame, message.message, message.wParam, message.lParam);
            continue;
        }
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return static_cast<int>(message.wParam);
}
