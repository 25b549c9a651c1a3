// The toolbar, which shows all commands that have a button.
#pragma once

#include "win32/windows_api.h"

// Creates the toolbar in `frame`, with buttons in their current states. Null if that fails.
HWND CreateToolbar(HWND frame);

// Replaces the toolbar by one for the scaling of its screen now. The caller places it.
void RecreateToolbar();

// Gives the toolbar as many rows of buttons as it needs for the width of the frame, unless the panes would be left too
// little of its height. If they change, the toolbar is replaced, and the caller places it.
void DivideToolbar();

// Shows the pictures so that they can be read on the system's button face, which may have another colour now.
void RecolorToolbar();

// Is the button of `command` shown greyed? False if it has none.
bool IsGreyedButton(int command);

// Puts the text of a button's tool tip into `tip`; an empty text if it has none. A toolbar whose buttons have texts
// asks for the tip first, and would then show the text of the button; its tool tip asks for those of all commands.
void AnswerButtonTip(NMTBGETINFOTIPA* tip);
void AnswerToolTip(NMTTDISPINFOA* tip);
