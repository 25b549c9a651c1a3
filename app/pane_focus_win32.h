// The keyboard focus among the panes: the keys that walk from one to the next, the tabs, and the keys and the wheel
// that reach the frame because no pane has them.
#pragma once

#include "win32/windows_api.h"

// Takes Tab and Shift+Tab, which give the focus to the next or previous visible pane: list, Passage, note. The note
// editor keeps both. Returns whether the message was such a key.
bool StepsThroughPanes(const MSG& message);

// Is it a key that the frame passes to a pane, although it is a command of the Passage? If so, the frame gets it first.
bool IsKeyOfFrame(const MSG& message);

// Passes a key of the frame, or its wheel, to the Passage or, if that is hidden, to the first visible pane. The focus
// does not move. Ignores other keys.
void PassKeyToPane(UINT key);
void PassWheelToPane(WPARAM wParam, LPARAM lParam);

// From now on a click on a tab, and Esc in a tab control, give the focus to its pane, and a double click in the
// Reference List reads its verse in context. UnwatchTabs restores the tab controls' own procedure.
void WatchTabs();
void UnwatchTabs();
