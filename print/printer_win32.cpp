#include "print/printer_win32.h"

#include "win32/screen.h"

static Printer& PrinterOf(void* device) {
    return *static_cast<Printer*>(device);
}

static PrinterFace& FaceOf(Printer& printer, PrintFace face) {
    return printer.faces[static_cast<std::size_t>(face)];
}

// Faces.

static void MakeFace(Printer& printer, PrintFace which, LOGFONTA record) {
    const HDC dc = printer.dc.get();
    const int screenDotsPerInch = Scaled(96);
    record.lfHeight =
        PrinterFontHeight(static_cast<int>(record.lfHeight), screenDotsPerInch, GetDeviceCaps(dc, LOGPIXELSY));
    PrinterFace& face = FaceOf(printer, which);
    face.font.reset(CreateFontIndirectA(&record));
    ReadLetterWidths(face.letters, dc, face.font.get());
    face.height = CellHeight(face.letters);
}

void MakeFaces(Printer& printer, const LOGFONTA& verseFont, const LOGFONTA& noteFont) {
    LOGFONTA bold = verseFont, italic = verseFont;
    bold.lfWeight = FW_BOLD;
    italic.lfWeight = FW_NORMAL;
    italic.lfItalic = TRUE;
    MakeFace(printer, PrintFace::kRegular, verseFont);
    MakeFace(printer, PrintFace::kBold, bold);
    MakeFace(printer, PrintFace::kItalic, italic);
    MakeFace(printer, PrintFace::kNote, noteFont);
}

PrinterResolution ResolutionOf(HDC dc) {
    return {GetDeviceCaps(dc, HORZRES), GetDeviceCaps(dc, VERTRES), GetDeviceCaps(dc, LOGPIXELSX),
            GetDeviceCaps(dc, LOGPIXELSY)};
}

// Pages.

static int WidthIn(void* device, PrintFace face, std::string_view text) {
    return WidthOf(FaceOf(PrinterOf(device), face).letters, text);
}

static int HeightOf(void* device, PrintFace face) {
    return FaceOf(PrinterOf(device), face).height;
}

static void SendRun(Printer& printer) {
    if (printer.run.empty()) return;
    const HDC dc = printer.dc.get();
    SelectObject(dc, FaceOf(printer, printer.runFace).font.get());
    TextOutA(dc, printer.runX, printer.runY, printer.run.data(), static_cast<int>(printer.run.size()));
    printer.run.clear();
}

static void Draw(void* device, PrintFace face, int x, int y, int width, std::string_view text) {
    Printer& printer = PrinterOf(device);
    const bool goesOn = face == printer.runFace && y == printer.runY && x == printer.runEnd;
    if (!goesOn || !FaceOf(printer, face).letters.addUp) {
        SendRun(printer);
        printer.runFace = face;
        printer.runX = x;
        printer.runY = y;
    }
    printer.run += text;
    printer.runEnd = x + width;
}

// A printer may forget at each page what was chosen on the one before.
static bool Begin(void* device) {
    Printer& printer = PrinterOf(device);
    if (StartPage(printer.dc.get()) <= 0) return false;
    SetBkMode(printer.dc.get(), TRANSPARENT);
    return true;
}

static bool End(void* device) {
    Printer& printer = PrinterOf(device);
    SendRun(printer);
    return EndPage(printer.dc.get()) > 0;
}

static bool GoesOn(void* device) {
    return PrinterOf(device).goesOn();
}

PrinterPage PageOf(Printer& printer) {
    return {&printer, WidthIn, HeightOf, Draw, Begin, End, GoesOn};
}
