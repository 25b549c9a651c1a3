// The context menu of the note view.
#pragma once

#include "win32/windows_api.h"

// Opens the menu at a point of the screen. The chosen command goes to the frame.
void OpenNoteMenu(POINT onScreen);
