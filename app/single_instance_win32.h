// One copy of the program works on a folder at a time, so that no two write the same notes.
#pragma once

#include "win32/windows_api.h"

// Claims the current directory for this process, to its end. False when another copy has it: that one's window
// `windowClass` has then been brought to the front, or the user has been told, and this copy is to end.
bool ClaimWorkingFolder(const char* windowClass);

// Lets copies that start later find `frame`.
void MarkClaimingFrame(HWND frame);
