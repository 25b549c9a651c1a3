// The system's dialogs for the printer and the page.
#pragma once

#include "win32/handles.h"

inline constexpr char kPrintErrorCaption[] = "Print Error";

// Both are asked over `frame` and begin with the printer that `setup` remembers. If that one is gone or cannot be used,
// a message says so and the default printer takes its place. Other errors are told as well; that there is no default
// printer is told by the system.

// Asks for margins and paper, initially those of `setup`, and stores the answer there.
void AskPageSetup(HWND frame, PAGESETUPDLGA& setup);

// Asks for a printer and stores its settings in `setup`. Null if the user cancels or after an error.
OwnedDc AskPrinter(HWND frame, PAGESETUPDLGA& setup);
