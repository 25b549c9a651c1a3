// The help viewer.
#pragma once

#include "win32/windows_api.h"

// Opens the help file `name` of the program at its contents, at a topic, or lets go of it. A file that is not there is
// reported in a message box by the first two, since the viewer itself would ask the user to look for it.
void OpenHelpContents(HWND owner, const char* name);
void OpenHelpTopic(HWND owner, const char* name, const char* topic);
void CloseHelp(HWND frame, const char* name);
