// The taskbar's list of the verses that the user has gone to ("jump list"), from which each can be opened again. Only
// an installed copy has one: a portable one leaves nothing on the computers that it runs on.
#pragma once

// The verse becomes the first of the list.
void RememberVerse(int verse);

// Writes the list if it has changed in this run, without the verses that the user has removed from it. To be called
// before the settings are written, when the frame is off the screen: it takes a while. Does nothing where the system
// has no such lists.
void WriteJumpList();

// Takes the list away from the taskbar; the verses stay in the settings. Does not need a window.
void RemoveJumpList();
