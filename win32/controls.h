// Helpers for windows and controls.
#pragma once

#include <string>

#include "win32/windows_api.h"

inline constexpr char kErrorCaption[] = "Error";
inline constexpr char kCopyErrorCaption[] = "Copy Error";

// Shows a message box with the stop icon and OK.
void Complain(HWND owner, const char* text, const char* caption = kErrorCaption);
void Complain(HWND owner, const std::wstring& text, const char* caption = kErrorCaption);

// Text of a control of `dialog`, at most `limit` characters.
std::string ControlText(HWND dialog, int control, int limit);
std::wstring WideControlText(HWND dialog, int control, int limit);

// Sets the focus to a field of `dialog` and selects all of its text, so that typing replaces it.
void SelectField(HWND dialog, int control);

// Gives a field the focus with the caret behind its text and nothing selected.
void PutCaretBehind(HWND dialog, int control);

bool IsChecked(HWND dialog, int control);
void SetChecked(HWND dialog, int control, bool checked);

// Gives the focus to the control behind `control` in its parent's Tab order, or with Shift to the one before it.
void StepFocus(HWND control);

// Returns the frame that a pane or dialog belongs to, and sends a command to it.
HWND FrameOf(HWND window);
void SendCommand(HWND frame, int command);

// Sends `command` to `frame` only if its main-menu item is neither greyed nor checked. A command without a menu item is
// never sent.
void RunIfEnabled(HWND frame, int command);

// Paints the invalid parts of the window and lets the system bring them to the screen, which it otherwise does only
// when the program is idle.
void ShowAtOnce(HWND window);

// Is the key down? Ctrl only counts without Alt, because together they type characters on some keyboards.
bool IsKeyDown(int key);
bool IsControlDown();

// Shows and removes the wait cursor; meanwhile `frame` captures the mouse. BeginWait returns the cursor for EndWait.
HCURSOR BeginWait(HWND frame);
void EndWait(HCURSOR before);

// Redirects a wheel message to the window under the mouse, which need not have the focus. It must be of this thread and
// of the same top-level window. Does nothing while the mouse is captured.
void RouteWheel(MSG& message);

// Lines per wheel notch in the user's settings; 0 for none, kPageANotch for a page.
inline constexpr int kPageANotch = -1;
int WheelLines();
