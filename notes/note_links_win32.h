// References in the text of the Notes window: with Ctrl held, the mouse has a hand over them, a tool tip shows their
// verses, and a click opens them.
#pragma once

#include "win32/windows_api.h"

// The view of the Notes window, with its font.
struct LinkedView {
    HWND window = nullptr;
    HFONT font = nullptr;
};

// To be called with each message before the view's own procedure gets it. True if the message has been dealt with. When
// a reference is clicked, the frame gets IDM_OPEN_REFERENCE once the message is done.
bool FollowLinks(const LinkedView& view, UINT message, WPARAM wParam, LPARAM lParam);

// The first verse of the reference that was clicked last; kNoVerse before.
int OpenedReference();

// To be called with each message that the program takes: pressing or releasing Ctrl changes the cursor over the view,
// whichever window has the focus.
void FollowControlKey(HWND view, const MSG& message);

// Scrolls to the first reference of the note shown that names the verse. Does nothing if there is none.
void ScrollToReferenceThatNames(HWND view, int verse);
