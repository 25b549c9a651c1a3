// The colours of frame and panes, and the choice of dark reading panes.
#pragma once

#include "win32/windows_api.h"

// Takes the colours that the system and the user have chosen now; returns whether any colour of the panes is another
// one. The caller repaints.
bool TakeColors();

// Repaints the frame and all that is in it.
void RepaintAll();

// Both, if the colours have changed.
void ShowChosenColors();

// The commands of Dark Reading Panes.
void ChooseDarkPanes(int command);
