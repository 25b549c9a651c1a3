// Printing a document: the system's dialogs, a "Printing..." dialog to stop it by, and what can fail on the way.
#pragma once

#include <string>
#include <vector>

#include "print/print_flow.h"
#include "win32/handles.h"

inline constexpr char kPrintErrorCaption[] = "Print Error";

// Asks for margins and paper, starting with those of `setup`, and keeps the answer there. Where there is no printer the
// system says so.
void AskPageSetup(HWND frame, PAGESETUPDLGA& setup);

// Asks for a printer, starting with the one last asked for; null where the user cancels or there is none, which the
// system says. `setup` keeps the printer's settings.
OwnedDc AskPrinter(HWND frame, PAGESETUPDLGA& setup);

// A job that is under way takes no other beside it.
bool IsPrinting();

struct PrintedDocument {
    const char* name;  // that the printer's queue shows
    const Scripture& scripture;
    std::vector<std::int32_t> verses;
    PrintOptions options;  // their box is set from the printer and the margins
    LOGFONTA verseFont, noteFont;
};

// Prints on `dc`, with `frame` disabled meanwhile, until the user has had enough; says what failed.
void PrintDocument(HWND frame, OwnedDc dc, const RECT& margins, PrintedDocument document);
