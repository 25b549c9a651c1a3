// Makes sure that only one copy of the program at a time uses a folder, so that no two write the same notes.
#pragma once

#include "win32/windows_api.h"

// Claims the current directory for this process until it ends. False if another copy has claimed it: that copy's window
// of class `windowClass` has been brought to the front or, if none was found in time, the user has been told. The
// caller must then exit.
bool ClaimWorkingFolder(const char* windowClass);

// Marks `frame` as the window that copies started later bring to the front.
void MarkClaimingFrame(HWND frame);
