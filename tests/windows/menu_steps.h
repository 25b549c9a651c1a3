// Context menus as their user sees them and chooses from them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tests/driver/driver.h"

// Each line as text: "130 Copy Range...\tF6", "162 Copy (greyed)", "183 Bind (ticked)", "> Go to Book" for a submenu,
// "---" for a separator.
std::vector<std::string> Described(const std::vector<MenuLine>& lines);

int CountOpenMenus(const Program& program);

// Where the open menu stands on the screen; it must be the only one.
RECT PlaceOfMenu(const Program& program);

// Presses Esc until no menu is open.
void LeaveMenu(const Program& program);

// Which line of the open menu, or of its submenu in line `submenu`, begins with `text`? Ends the test when none does.
int LineOf(const Program& program, std::string_view text);
int LineOf(const Program& program, int submenu, std::string_view text);

// Chooses a row of the open menu, or of one of its submenus, with the arrow keys and Enter, by how its text begins.
void ChooseRow(const Program& program, std::string_view text);
void ChooseRow(const Program& program, std::string_view submenu, std::string_view text);
