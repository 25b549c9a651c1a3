// The text of the view in the Notes window.
//
// A rich-edit control lays out all of a text before it shows any of it, which takes 16 ms for one of 30 kB. So the view
// first gets what it has room for, and the whole text once that is painted and no input waits, or before any message
// whose answer depends on the text. Nothing but the painting sees a part of it.
#pragma once

#include <string>

#include "win32/windows_api.h"

// Shows `note`, as it is stored, in `view`, which has the font `font`, with the caret at its start.
void ShowInNoteView(HWND view, HFONT font, const std::string& note);

// Does the view need long to show another text than it has? Then a new one should take its place first.
bool IsNoteRemovedSlowly();

// To be called before the view's own procedure gets the message: completes the text if the message needs that.
void PrepareNoteView(HWND view, UINT message);

// Gives the view the rest of its text; false if it has all of it. To be called when no input waits, and before anything
// waits for input in a loop of its own.
bool CompleteNoteView(HWND view);
