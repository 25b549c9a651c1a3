// A printer of the system as the flow of pages needs it.
#pragma once

#include <array>
#include <string>

#include "output/letter_widths_win32.h"
#include "print/print_flow.h"
#include "win32/handles.h"

struct PrinterFace {
    OwnedFont font;
    LetterWidths letters;
    int height = 0;  // of a character cell, pixels
};

// What stands side by side in one line and face goes to the printer as one run: a call for each word would cost more
// than all else. Nothing is kept longer than a line.
struct Printer {
    std::array<PrinterFace, kPrintFaceCount> faces;
    OwnedDc dc;  // goes before the faces, one of which is selected there
    bool (*goesOn)() = nullptr;
    PrintFace runFace = PrintFace::kRegular;
    int runX = 0, runY = 0, runEnd = 0;
    std::string run;
};

// Makes the four faces for `printer.dc` from fonts of the screen: as chosen, bold and italic from `verseFont`, the
// notes' from `noteFont`.
void MakeFaces(Printer& printer, const LOGFONTA& verseFont, const LOGFONTA& noteFont);

PrinterResolution ResolutionOf(HDC dc);

// The device over `printer`, which must stay. `printer.goesOn` says whether the job goes on.
PrinterPage PageOf(Printer& printer);
