// Short ways to windows and controls.
#pragma once

#include <string>

#include "win32/windows_api.h"

inline constexpr char kErrorCaption[] = "Error";
inline constexpr char kCopyErrorCaption[] = "Copy Error";

// A message box with the stop icon and OK.
void Complain(HWND owner, const char* text, const char* caption = kErrorCaption);

// Text of a control of `dialog`, at most `limit` characters.
std::string ControlText(HWND dialog, int control, int limit);

// Gives the focus to a field of `dialog` with all of its text selected, for the user to type anew.
void SelectField(HWND dialog, int control);

bool IsChecked(HWND dialog, int control);
void SetChecked(HWND dialog, int control, bool checked);

// The frame that a pane or dialog belongs to, and the command that it sends there.
HWND FrameOf(HWND window);
void SendCommand(HWND frame, int command);

// Sends `command` to `frame` only if its main-menu item is neither greyed nor checked. One that is in no menu is never
// sent.
void RunIfEnabled(HWND frame, int command);

// Paints what of the window waits for it, and lets the system bring it to the screen, as it otherwise does when the
// program has nothing left to do.
void ShowAtOnce(HWND window);

// Is the key held down? Ctrl counts only without Alt: the two together type letters on some keyboards.
bool IsKeyDown(int key);
bool IsControlDown();

// Takes and gives back the wait cursor, with the mouse captured by `frame` meanwhile.
HCURSOR BeginWait(HWND frame);
void EndWait(HCURSOR before);

// Sends a wheel message to the window of this thread under the mouse, which need not have the focus.
void RouteWheel(MSG& message);

// Lines that the user wants a notch to scroll; 0: none; kPageANotch: a page.
inline constexpr int kPageANotch = -1;
int WheelLines();
