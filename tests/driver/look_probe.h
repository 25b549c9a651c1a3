// Colours and themes of the system, as the program is told of them. Part of the probe library.
#pragma once

#include <windows.h>

constexpr int kMostSystemColors = 31;

struct SystemColorTable {
    int count = 0;
    int elements[kMostSystemColors] = {};  // COLOR_WINDOW, ...
    COLORREF colors[kMostSystemColors] = {};
};

// Under Wine only the process that sets the system's colours notices at once.
bool SetColorsHere(const SystemColorTable& table);

// The same for the font of message boxes: sets its height, in pixels, and returns the height before.
int SetMessageFontHere(int height);

// From now on the program is told that high contrast is on or off. Wine knows no high contrast.
bool TellHighContrast(bool isOn);

// From now on the program finds a recorder in place of the procedure that sets attributes of windows, which does
// nothing under Wine. The result is what the attribute for dark title bars was set to last, or -1 if it was not.
int DarkTitleSet();
