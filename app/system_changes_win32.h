// How the frame follows changes of the system's colours, fonts and themes.
#pragma once

#include "win32/windows_api.h"

// To be called for WM_SYSCOLORCHANGE, WM_SETTINGCHANGE and WM_THEMECHANGED of the frame: passes them on to all controls
// and shows what has changed.
void FollowSystem(UINT message, WPARAM wParam, LPARAM lParam);

// Makes all fonts anew, and the toolbar, for the scaling of the frame's screen. The caller lays the frame out.
void RenewFonts();
