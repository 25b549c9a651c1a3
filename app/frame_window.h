// The frame's window: class, creation and message handling.
#pragma once

#include "app/settings.h"
#include "win32/windows_api.h"

inline constexpr char kFrameClass[] = "Versewell97";  // also its title

bool RegisterFrameClass();

// Creates the frame at `placement`, or where the system chooses if that is off screen. This runs the whole start-up.
// Null if it fails.
HWND CreateFrame(const FramePlacement& placement);
