// The context menu of the Verse List and of the Reference List.
#pragma once

#include <vector>

#include "win32/popup_menu.h"

// Its rows, which name this verse.
std::vector<MenuRow> VerseListMenu(int verse);
