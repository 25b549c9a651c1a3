// A printer of the system as the flow of pages needs it.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "print/print_flow.h"
#include "typeset/letter_widths_win32.h"
#include "win32/handles.h"

struct PrinterFace {
    OwnedFont font;
    LetterWidths letters;
    int height = 0;  // of a character cell, pixels
};

// What stands side by side in one line and face goes to the printer as one run, and the runs of a page face by face: a
// call for each word, and a driver that is to take up a font again and again, would cost more than all else. Nothing is
// kept longer than a page.
struct PrinterRun {
    PrintFace face = PrintFace::kRegular;
    int x = 0, y = 0, end = 0;
    std::string text;
};

struct Printer {
    std::array<PrinterFace, kPrintFaceCount> faces;
    OwnedDc dc;  // goes before the faces, one of which is selected there
    bool (*goesOn)() = nullptr;
    std::vector<PrinterRun> runs;  // of the page that is open
    std::vector<int> advances;     // from letter to letter, of the run being sent
};

// Makes the four faces for `printer.dc` from fonts of the screen: as chosen, bold and italic from `verseFont`, the
// notes' from `noteFont`.
void MakeFaces(Printer& printer, const LOGFONTA& verseFont, const LOGFONTA& noteFont);

PrinterResolution ResolutionOf(HDC dc);

// The device over `printer`, which must stay. `printer.goesOn` says whether the job goes on.
PrinterPage PageOf(Printer& printer);
