// The system's dialogs for the printer and the page.
#pragma once

#include <string>

#include "win32/handles.h"

inline constexpr char kPrintErrorCaption[] = "Print Error";

// What the dialogs begin with.
struct PrinterSetup {
    std::wstring firstPrinter;  // as told by NoteFirstPrinter
    bool isRead = false;        // has the system been asked for `page`?
    PAGESETUPDLGW page{};       // margins, paper and printer of the last dialog, initially the system's
};

// Notes the printer that is the default one now, without loading the system's libraries for printing. It is the one
// that the first dialog begins with, even if another one is the default by then.
void NoteFirstPrinter(PrinterSetup& setup);

// Both are asked over `frame` and begin with the printer that `setup` remembers. If that one is gone or cannot be used,
// a message says so and the default printer takes its place. Other errors are told as well; that there is no default
// printer is told by the system.

// Asks for margins and paper, initially those of `setup`, and stores the answer there.
void AskPageSetup(HWND frame, PrinterSetup& setup);

// Asks for a printer and stores its settings in `setup`. Null if the user cancels or after an error.
OwnedDc AskPrinter(HWND frame, PrinterSetup& setup);
