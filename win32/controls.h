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

// Writes a part of a status bar where its text changes.
void SetStatusPart(HWND statusBar, int part, const std::string& text);

// Paints what of the window waits for it, and lets the system bring it to the screen, as it otherwise does when the
// program has nothing left to do.
void ShowAtOnce(HWND window);

// Takes and gives back the wait cursor, with the mouse captured by `frame` meanwhile.
HCURSOR BeginWait(HWND frame);
void EndWait(HCURSOR before);

// Sends a wheel message to the window of this thread under the mouse, which need not have the focus.
void RouteWheel(MSG& message);

// Whole steps turned by a wheel message where a notch is worth `perNotch`; what a finer wheel or a touch pad leaves
// over is kept in `rest` for the next message. Up is positive.
int WheelSteps(int delta, int perNotch, int& rest);
// Lines that the user wants a notch to scroll; 0: none; kPageANotch: a page.
inline constexpr int kPageANotch = -1;
int WheelLines();
