// Start-up and shut-down of the program, and its settings file.
#pragma once

#include "app/settings.h"
#include "win32/windows_api.h"

// The start-up sequence, run while `frame` is being created. False if creation must fail; what was done until then is
// not undone. If there is no memory for the verse lists, start-up stops half-way but returns true: the frame opens
// without text, and the settings are not written at the end.
bool StartUp(HWND frame);

// The shut-down sequence, run while the frame is being destroyed.
void ShutDown();

// The settings file in the directory that is current at the first call, accessed through the private-profile functions.
ProfileFile SettingsProfile();
