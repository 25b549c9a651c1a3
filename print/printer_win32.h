// A printer device context as the device that the layout in print_flow.h prints on.
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

// Adjacent words of one line and face. They are sent to the printer with one call, and the runs of a page are sent face
// by face, because a call for each word and frequent changes of font would take most of the time of a job. Runs are
// kept only until the end of their page.
struct PrinterRun {
    PrintFace face = PrintFace::kRegular;
    int x = 0, y = 0, end = 0;
    std::string text;
};

struct Printer {
    std::array<PrinterFace, kPrintFaceCount> faces;
    OwnedDc dc;  // declared after the faces to be destroyed first: one of them is selected into it
    bool (*goesOn)() = nullptr;
    void (*tellPage)(int page) = nullptr;
    int pages = 0;                 // started so far
    std::vector<PrinterRun> runs;  // of the open page
    std::vector<int> advances;     // width of each letter of the run being sent
};

// Creates the faces for `printer.dc` from screen fonts, of a screen with 96 dpi: `verseFont` as it is, in bold and
// in italics, and `noteFont`.
void MakeFaces(Printer& printer, const LOGFONTA& verseFont, const LOGFONTA& noteFont);

PrinterResolution ResolutionOf(HDC dc);

// The device that prints on `printer`, which must outlive it. `printer.goesOn` must be set; it returns false to cancel.
// So must `printer.tellPage`, which is called when a page has been started, with its number, from 1.
PrinterPage PageOf(Printer& printer);
