#include "win32/popup_menu.h"

#include "win32/controls.h"
#include "win32/dpi.h"
#include "win32/handles.h"

static std::string TextInMenu(HWND frame, int command) {
    char text[128] = "";
    GetMenuStringA(GetMenu(frame), static_cast<UINT>(command), text, sizeof text, MF_BYCOMMAND);
    return text;
}

std::string KeyInMenu(HWND frame, int command) {
    const std::string text = TextInMenu(frame, command);
    const std::size_t tab = text.find('\t');
    return tab == std::string::npos ? "" : text.substr(tab + 1);
}

static std::string ShownText(HWND frame, const MenuRow& row) {
    return row.text.ends_with('\t') ? row.text + KeyInMenu(frame, row.command) : row.text;
}

static OwnedMenu MenuOf(HWND frame, const std::vector<MenuRow>& rows);

static void AppendRow(HMENU menu, HWND frame, const MenuRow& row) {
    const UINT state =
        (row.greyed ? MF_GRAYED : 0u) | (row.checked ? MF_CHECKED : 0u) | (row.startsColumn ? MF_MENUBARBREAK : 0u);
    const std::string text = ShownText(frame, row);
    if (!row.submenu.empty()) {
        OwnedMenu submenu = MenuOf(frame, row.submenu);
        const auto handle = reinterpret_cast<UINT_PTR>(submenu.get());
        if (AppendMenuA(menu, state | MF_POPUP, handle, text.c_str())) submenu.release();  // now owned by its menu
    } else if (text.empty()) {
        AppendMenuA(menu, MF_SEPARATOR, 0, nullptr);
    } else {
        AppendMenuA(menu, state | MF_STRING, static_cast<UINT_PTR>(row.command), text.c_str());
    }
}

static OwnedMenu MenuOf(HWND frame, const std::vector<MenuRow>& rows) {
    OwnedMenu menu(CreatePopupMenu());
    for (const MenuRow& row : rows) AppendRow(menu.get(), frame, row);
    return menu;
}

static int ChosenFrom(HWND owner, POINT onScreen, const std::vector<MenuRow>& rows) {
    const OwnedMenu menu = MenuOf(FrameOf(owner), rows);
    SendMessageA(FrameOf(owner), WM_ENTERMENULOOP, TRUE, 0);  // the system tells only the owner
    return TrackPopupMenu(menu.get(), TPM_LEFTALIGN | TPM_TOPALIGN | TPM_RIGHTBUTTON | TPM_RETURNCMD, onScreen.x,
                          onScreen.y, 0, owner, nullptr);
}

void OpenPopupMenu(HWND receiver, POINT onScreen, const std::vector<MenuRow>& rows) {
    const int chosen = ChosenFrom(receiver, onScreen, rows);
    if (chosen != 0) SendCommand(receiver, chosen);
}

POINT FromCornerOf(HWND window, int x, int y) {
    RECT place{};
    GetWindowRect(window, &place);
    return {place.left + x, place.top + y};
}

bool IsMenuByKey(UINT x, UINT y) {
    static constexpr UINT kNoPlace = 0xFFFF;  // -1 in each half of the message's lParam
    return x == kNoPlace && y == kNoPlace;
}

int OffsetOfKeyMenu(HWND window) {
    return Scaled(window, 1);
}

std::vector<MenuRow> RowsOfFrameMenu(HWND frame, int first, int count) {
    std::vector<MenuRow> rows;
    for (int command = first; command < first + count; ++command) {
        rows.push_back({command, TextInMenu(frame, command)});
    }
    return rows;
}

bool IsGreyedInFrame(HWND frame, int command) {
    return GetMenuState(GetMenu(frame), static_cast<UINT>(command), MF_BYCOMMAND) & MF_GRAYED;
}
