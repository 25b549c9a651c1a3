// Printing a document: the system's dialogs, the "Printing..." dialog with its Cancel button, and error messages.
#pragma once

#include <string>
#include <vector>

#include "print/print_flow.h"
#include "win32/handles.h"

inline constexpr char kPrintErrorCaption[] = "Print Error";

// Asks for margins and paper, initially those of `setup`, and stores the answer there. If there is no printer, the
// system reports it.
void AskPageSetup(HWND frame, PAGESETUPDLGA& setup);

// Asks for a printer, initially the one chosen last, and stores its settings in `setup`. Null if the user cancels or if
// there is no printer, which the system reports.
OwnedDc AskPrinter(HWND frame, PAGESETUPDLGA& setup);

// True while a job is printed; no other may be started then.
bool IsPrinting();

struct PrintedDocument {
    const char* name;  // as shown in the printer queue
    const Scripture& scripture;
    std::vector<std::int32_t> verses;
    PrintOptions options;  // `box` and `tabDistance` are set by PrintDocument from the printer and the margins
    LOGFONTA verseFont, noteFont;
};

// Prints on `dc` until the end or until the user cancels. `frame` is disabled meanwhile. Reports errors to the user.
void PrintDocument(HWND frame, OwnedDc dc, const RECT& margins, PrintedDocument document);
