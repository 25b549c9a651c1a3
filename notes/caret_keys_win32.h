// Keys that move the caret in the rich-edit controls of notes, which hold plain text.
#pragma once

#include "win32/windows_api.h"

struct CaretControl {
    HWND window = nullptr;
    WNDPROC procedure = nullptr;  // the control's own
};

// Does this key, with Ctrl if that is held down now, go from word to word?
bool IsKeyByWord(WPARAM key);

// Passes a WM_KEYDOWN to the control's own procedure and keeps the ends of the selection in places that exist. A key
// that goes from word to word stops where `WordStopFrom` and `WordStopUpTo` tell. Returns the result of the message.
LRESULT PressCaretKey(const CaretControl& control, WPARAM key, LPARAM lParam);
