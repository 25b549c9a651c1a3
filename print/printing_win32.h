// Printing a document: the "Printing..." dialog with its Cancel button, and error messages.
#pragma once

#include <string>
#include <vector>

#include "print/print_flow.h"
#include "win32/handles.h"

// True while a job is printed; no other may be started then.
bool IsPrinting();

struct PrintedDocument {
    const char* name;  // as shown in the printer queue
    const Scripture& scripture;
    std::vector<std::int32_t> verses;
    PrintOptions options;          // `box` and `tabDistance` are set by PrintDocument from the printer and the margins
    LOGFONTA verseFont, noteFont;  // for 96 dpi
};

// Prints on `dc` until the end or until the user cancels. `frame` is disabled meanwhile. Reports errors to the user.
void PrintDocument(HWND frame, OwnedDc dc, const RECT& margins, PrintedDocument document);
