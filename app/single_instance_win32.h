// Makes sure that only one copy of the program at a time uses a folder, so that no two write the same notes.
#pragma once

#include <functional>
#include <string>

#include "win32/windows_api.h"

// Claims the current directory for this process until it ends. False if another copy has claimed it: that copy's window
// of class `windowClass`, or the box with which it asks something before it has one, has been brought to the front
// after `tell` was called with it or, if none was found in time, the user has been told. The caller must then exit. To
// be called by the thread of the windows.
bool ClaimWorkingFolder(const char* windowClass, const std::function<void(HWND window)>& tell);

// Is a copy of the program running that has claimed this folder? One on another computer is not noticed.
bool IsFolderClaimed(const std::wstring& folder);

// Marks `frame` as the window that copies started later bring to the front.
void MarkClaimingFrame(HWND frame);
