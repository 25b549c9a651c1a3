// Commands that choose fonts and colours, and the keys and the wheel that make a pane's letters larger and smaller.
#pragma once

#include "win32/windows_api.h"

void ChooseListFont(int command);
void ChoosePassageFont(int command);
void ChooseNotesFont(int command);
void ChooseHighlightColor(int command);

// Makes the letters of the pane with the focus one size larger (IDM_ZOOM_IN) or smaller; those of the first visible
// pane if none has it. The Reference List has no font of its own and stays as it is.
void ZoomFocusedPane(int command);

// Takes the wheel with Ctrl over a pane or its tabs, which does the same for each notch. Returns whether the message
// was that; it must have been routed to the window under the mouse.
bool ZoomsByWheel(const MSG& message);
