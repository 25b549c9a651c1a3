// The end of the user's session: logging off, shutting down, restarting for updates.
#pragma once

#include "win32/windows_api.h"

// Asks the system to start the program again after a restart for updates, a crash, or an installer that has closed it,
// with the same working folder: /folder "C:\My Notes". To be called when that has been settled.
void AskForRestart();

// WM_QUERYENDSESSION: may the session end? Always, at once; a note that is being edited is in the session file then.
BOOL OnQueryEndSession(HWND frame);

// WM_ENDSESSION: the program is ended without WM_DESTROY afterwards; by itself if an installer has asked for it
// (ENDSESSION_CLOSEAPP among the reasons).
void OnEndSession(BOOL isEnding, LPARAM reasons);
