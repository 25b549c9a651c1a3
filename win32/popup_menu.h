// Context menus, made of rows when they open.
#pragma once

#include <string>
#include <vector>

#include "win32/windows_api.h"

struct MenuRow {
    int command = 0;  // 0 without a text: a separator
    // With "&" and "\t" as in a resource. A text that ends in "\t" is shown with the key of its command, as KeyInMenu
    // gives it.
    std::string text;
    bool greyed = false;
    bool checked = false;
    bool startsColumn = false;
    std::vector<MenuRow> submenu{};  // any: the row opens it
};

// Shows the menu with its upper left corner at `onScreen`, so far as the screen has room for it, and sends the command
// of the row that is chosen to `receiver` once the menu is gone; none when it is left otherwise.
void OpenPopupMenu(HWND receiver, POINT onScreen, const std::vector<MenuRow>& rows);

// `x`, `y` from the upper left corner of `window`, its border included, as a point of the screen.
POINT FromCornerOf(HWND window, int x, int y);

// Did a key bring WM_CONTEXTMENU, which then names no place? The menu opens this far inside the window.
bool IsMenuByKey(UINT x, UINT y);
inline constexpr int kKeyMenuOffset = 1;  // pixels from the left and from the upper edge

// `count` rows from `first` on as the frame's own menu has them.
std::vector<MenuRow> RowsOfFrameMenu(HWND frame, int first, int count);

// The key that the frame's menu shows for `command`, "Ctrl+C"; empty where it shows none.
std::string KeyInMenu(HWND frame, int command);

// Is the item of `command` in the frame's menu greyed?
bool IsGreyedInFrame(HWND frame, int command);
