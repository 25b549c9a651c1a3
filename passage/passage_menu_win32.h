// The Passage's context menu.
#pragma once

#include "win32/windows_api.h"

// Opens the menu, built for what the Passage shows now, at a point of the screen. The chosen command goes to the pane.
void OpenPassageMenu(POINT onScreen);

// Is `command`, which has come to the pane, one that its frame carries out?
bool IsFrameCommandOfPassage(int command);
