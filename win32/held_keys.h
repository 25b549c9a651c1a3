// Keys that the user holds down, which the keyboard then repeats by itself.
#pragma once

// Watches the messages of this thread from now on, those of dialogs and menus included. To be called once.
void WatchHeldKeys();

// Is the input that the thread handles a repetition by a key that is held down, not its first press? False for mouse
// clicks and commands from menus, and as long as nothing is watched.
bool IsHeldKey();
