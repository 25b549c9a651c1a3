// The help viewer.
#pragma once

#include "win32/windows_api.h"

// Opens the help file `name` of the program at its contents, at a topic, or lets go of it. Where the system has no
// viewer for such files, the first two open the page "help\TOPIC.html" ("help\index.html") beside the program in the
// user's browser. What can be opened in neither way is reported in a message box.
void OpenHelpContents(HWND owner, const char* name);
void OpenHelpTopic(HWND owner, const char* name, const char* topic);
void CloseHelp(HWND frame, const char* name);
