// Helpers that read context menus and choose their items like a user.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tests/driver/driver.h"

// Each line as text: "130 Copy Range...\tF6", "162 Copy (greyed)", "183 Bind (ticked)", "> Go to Book" for a submenu,
// "---" for a separator.
std::vector<std::string> Described(const std::vector<MenuLine>& lines);

int CountOpenMenus(const Program& program);

// Screen rectangle of the open menu; it must be the only one.
RECT PlaceOfMenu(const Program& program);

// Presses Esc until no menu is open.
void LeaveMenu(const Program& program);

// Index of the line that begins with `text`, in the open menu or in the submenu in its line `submenu`. Ends the test if
// there is none.
int LineOf(const Program& program, std::string_view text);
int LineOf(const Program& program, int submenu, std::string_view text);

// Chooses the item that begins with `text`, in the open menu or in one of its submenus, with the arrow keys and Enter.
void ChooseRow(const Program& program, std::string_view text);
void ChooseRow(const Program& program, std::string_view submenu, std::string_view text);

// Saves a picture of the screen area of the program, because the menu is a separate window that may extend beyond it.
void KeepPictureOfMenu(const Program& program, const std::string& name);
