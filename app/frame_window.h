// The frame's window: its class, its creation, its messages.
#pragma once

#include "app/settings.h"
#include "win32/windows_api.h"

inline constexpr char kFrameClass[] = "Versewell97";  // and its title

bool RegisterFrameClass();

// Creates the frame where the settings say, with all of start-up inside; null when it failed.
HWND CreateFrame(const FramePlacement& placement);
