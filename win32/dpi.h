// Sizes that depend on the dots per inch of the screen that a window is on: everything that the program measures in
// pixels of its own, and the system's fonts and metrics. 96 dots per inch are the size without any scaling.
//
// Windows 10 tells the dots per inch of each window. Before version 1607 the program has those of the system for as
// long as it runs, and the system enlarges what is on another screen.
#pragma once

#include "win32/windows_api.h"

inline constexpr int kUnscaledDpi = 96;

// Dots per inch of `window`'s screen. With null, those of the system, which the common dialogs go by.
int DpiOf(HWND window);

// From now on `frame` and its children have the `dpi` that WM_DPICHANGED has brought. There is one such window.
void TakeDpi(HWND frame, int dpi);

// Converts pixels at 96 dpi to pixels at `dpi` or of `window`, and back.
int ScaledTo(int dpi, int pixels);
int Scaled(HWND window, int pixels);
int UnscaledFrom(int dpi, int pixels);

// GetSystemMetrics of a length (SM_CXSIZEFRAME, ...) for `window`.
int SystemMetric(HWND window, int metric);

// The fonts of the system's message boxes, and of status bars and tool tips, for `window`. They exist until the program
// ends or FollowSystemFonts has returned true twice.
HFONT MessageFont(HWND window);
HFONT StatusFont(HWND window);

// Makes these fonts anew if the user has chosen others, or if `isSmoothedAnew`: fonts keep the smoothing with which
// they were made. False if they stay.
bool FollowSystemFonts(bool isSmoothedAnew);
