// Keys that the user holds down, which the keyboard then repeats by itself.
#pragma once

#include "win32/windows_api.h"

// Watches from now on the messages of this thread that the system's own loops take, those of dialogs and menus. To be
// called once. A hook for all messages would slow each of them, under Wine by three requests to its server.
void WatchHeldKeys();

// To be called with each message that the program's own loop takes.
void LookForHeldKey(const MSG& message);

// Is the input that the thread handles a repetition by a key that is held down, not its first press? False for mouse
// clicks and commands from menus, and as long as nothing is watched.
bool IsHeldKey();
