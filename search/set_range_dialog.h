// Set Search Range.
#pragma once

#include "win32/windows_api.h"

inline constexpr int kRangePart = 4;  // of the status bar

// Asks over `owner` for the range of verses to search and stores it in `theSearch`.
void AskSearchRange(HWND owner);

// Writes the range into the status bar of `frame`.
void ShowSearchRange(HWND frame);
