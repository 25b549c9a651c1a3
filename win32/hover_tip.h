// A tool tip that is shown at once and stays while the mouse is over what it tells of. The system's own tips wait
// before they appear, and again for each of many small things that the mouse passes.
#pragma once

#include <string>

#include "win32/windows_api.h"

struct HoverTip {
    HWND window = nullptr;  // made when a tip is shown first
};

// Shows `text` beside `place`, in screen coordinates: to the right of it, or to the left if the screen has no room
// there. `owner` is the window that the tip belongs to.
void ShowHoverTip(HoverTip& tip, HWND owner, const std::string& text, const RECT& place);

void HideHoverTip(const HoverTip& tip, HWND owner);
