// The end of the user's session: logging off, shutting down, restarting for updates.
#pragma once

#include "win32/windows_api.h"

// Asks the system to start the program again after a restart for updates or a crash, with the same working folder. To
// be called when that has been settled.
void AskForRestart();

// If the program was started in that way, makes the folder in its command line the current one: /folder "C:\My Notes".
void EnterRestartFolder();

// WM_QUERYENDSESSION: may the session end? Always, at once; a note that is being edited is in the session file then.
BOOL OnQueryEndSession(HWND frame);

// WM_ENDSESSION: the program is ended without WM_DESTROY afterwards.
void OnEndSession(HWND frame, BOOL isEnding);
