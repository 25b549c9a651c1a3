// The help viewer.
#pragma once

#include "win32/windows_api.h"

// Opens the program's help file `name` at its contents or at a topic, or tells the viewer to close it. If the system
// has no viewer for help files, the first two open the page "help\TOPIC.html" ("help\index.html") beside the program in
// the user's browser. A message box reports if neither is possible. While a key is held down, only its first press
// opens something (win32/held_keys.h).
void OpenHelpContents(HWND owner, const char* name);
void OpenHelpTopic(HWND owner, const char* name, const char* topic);
void CloseHelp(HWND frame, const char* name);
