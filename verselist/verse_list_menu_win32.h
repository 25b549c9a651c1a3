// The Verse List's context menu.
#pragma once

#include "win32/windows_api.h"

// Opens the menu, built for the current entry, at a point of the screen; none in an empty list. The chosen command goes
// to the pane.
void OpenVerseListMenu(POINT onScreen);
