// Context menus, built from rows when they are opened.
#pragma once

#include <string>
#include <vector>

#include "win32/windows_api.h"

struct MenuRow {
    int command = 0;  // 0 with an empty text: a separator
    // With "&" and "\t" as in a resource. If the text ends with "\t", the key of the command is appended (see
    // KeyInMenu).
    std::string text;
    bool greyed = false;
    bool checked = false;
    bool startsColumn = false;
    std::vector<MenuRow> submenu{};  // not empty: the row opens it
};

// Shows the menu with its upper left corner at `onScreen`, or as near as the screen has room, and after it has closed
// sends the command of the chosen row to `receiver`. Sends nothing if no row is chosen.
void OpenPopupMenu(HWND receiver, POINT onScreen, const std::vector<MenuRow>& rows);

// Screen coordinates of the point `x`, `y` from the upper left corner of `window`, including its border.
POINT FromCornerOf(HWND window, int x, int y);

// Was WM_CONTEXTMENU sent for a key, and therefore without a position? The menu then opens at this distance, in pixels,
// from the left and from the upper edge of `window`.
bool IsMenuByKey(UINT x, UINT y);
int OffsetOfKeyMenu(HWND window);

// `count` rows with the texts of the frame menu's commands from `first` on.
std::vector<MenuRow> RowsOfFrameMenu(HWND frame, int first, int count);

// The key that the frame's menu shows for `command`, such as "Ctrl+C"; empty if it shows none.
std::string KeyInMenu(HWND frame, int command);

// Is the item of `command` in the frame's menu greyed?
bool IsGreyedInFrame(HWND frame, int command);
