// The life of the frame: all that happens before the first message and after the last.
#pragma once

#include "app/settings.h"
#include "win32/windows_api.h"

// The start-up sequence, run while `frame` is being created. False when the frame is not to be; whatever was done
// stays. It may also stop half-way and yet be true (no memory for the verse lists): the frame then opens without text,
// and its settings are not written.
bool StartUp(HWND frame);

// The shut-down sequence, run while the frame is being destroyed.
void ShutDown();

// The settings file in the directory that is current at the first call, through the private-profile functions.
ProfileFile SettingsProfile();
