#include "print/printer_win32.h"

#include "notes/note_letters.h"
#include "win32/code_page.h"
#include "win32/dpi.h"

static Printer& PrinterOf(void* device) {
    return *static_cast<Printer*>(device);
}

static PrinterFace& FaceOf(Printer& printer, PrintFace face) {
    return printer.faces[static_cast<std::size_t>(face)];
}

// ---- Faces ----------------------------------------------------------------------------------------------------------

static void MakeFace(Printer& printer, PrintFace which, LOGFONTA record) {
    const HDC dc = printer.dc.get();
    record.lfHeight = PrinterFontHeight(static_cast<int>(record.lfHeight), kUnscaledDpi, GetDeviceCaps(dc, LOGPIXELSY));
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
    MakeFace(printer, PrintFace::kUtf8Note, noteFont);
}

PrinterResolution ResolutionOf(HDC dc) {
    return {GetDeviceCaps(dc, HORZRES), GetDeviceCaps(dc, VERTRES), GetDeviceCaps(dc, LOGPIXELSX),
            GetDeviceCaps(dc, LOGPIXELSY)};
}

static SIZE ExtentOf(Printer& printer, std::string_view utf8) {
    SelectObject(printer.dc.get(), FaceOf(printer, PrintFace::kUtf8Note).font.get());
    const std::wstring text = Wide(LettersOfUtf8(utf8));
    SIZE size{};
    GetTextExtentPoint32W(printer.dc.get(), text.data(), static_cast<int>(text.size()), &size);
    return size;
}

// ---- Pages ----------------------------------------------------------------------------------------------------------

static int WidthIn(void* device, PrintFace face, std::string_view text) {
    if (face == PrintFace::kUtf8Note) return static_cast<int>(ExtentOf(PrinterOf(device), text).cx);
    return WidthOf(FaceOf(PrinterOf(device), face).letters, text);
}

static int HeightOf(void* device, PrintFace face) {
    return FaceOf(PrinterOf(device), face).height;
}

// Unlike its words one by one, a line gets the order of its scripts from the system, and each letter its form.
static void SendUtf8Run(Printer& printer, const PrinterRun& run) {
    const std::wstring text = Wide(LettersOfUtf8(run.text));
    ExtTextOutW(printer.dc.get(), run.x, run.y, 0, nullptr, text.data(), static_cast<UINT>(text.size()), nullptr);
}

// Passes the width of each letter to the driver, which would otherwise measure every letter itself.
static void SendRun(Printer& printer, const PrinterRun& run) {
    if (run.face == PrintFace::kUtf8Note) return SendUtf8Run(printer, run);
    const LetterWidths& letters = FaceOf(printer, run.face).letters;
    printer.advances.clear();
    for (const char letter : run.text) printer.advances.push_back(letters.widths[static_cast<unsigned char>(letter)]);
    ExtTextOutA(printer.dc.get(), run.x, run.y, 0, nullptr, run.text.data(), static_cast<UINT>(run.text.size()),
                letters.addUp ? printer.advances.data() : nullptr);
}

static void SendPage(Printer& printer) {
    for (int face = 0; face < kPrintFaceCount; ++face) {
        SelectObject(printer.dc.get(), FaceOf(printer, static_cast<PrintFace>(face)).font.get());
        for (const PrinterRun& run : printer.runs) {
            if (run.face == static_cast<PrintFace>(face)) SendRun(printer, run);
        }
    }
    printer.runs.clear();
}

static bool GoesOnWith(const PrinterRun& run, PrintFace face, int x, int y) {
    return face == run.face && y == run.y && x == run.end;
}

static void Draw(void* device, PrintFace face, int x, int y, int width, std::string_view text) {
    Printer& printer = PrinterOf(device);
    const bool asOne = face == PrintFace::kUtf8Note || FaceOf(printer, face).letters.addUp;
    if (!asOne || printer.runs.empty() || !GoesOnWith(printer.runs.back(), face, x, y))
        printer.runs.push_back({face, x, y, x, {}});
    PrinterRun& run = printer.runs.back();
    run.text += text;
    run.end = x + width;
}

// A driver may reset the device context at the start of each page, so the background mode is set every time.
static bool Begin(void* device) {
    Printer& printer = PrinterOf(device);
    if (StartPage(printer.dc.get()) <= 0) return false;
    SetBkMode(printer.dc.get(), TRANSPARENT);
    printer.tellPage(++printer.pages);
    return true;
}

static bool End(void* device) {
    Printer& printer = PrinterOf(device);
    SendPage(printer);
    return EndPage(printer.dc.get()) > 0;
}

static bool GoesOn(void* device) {
    return PrinterOf(device).goesOn();
}

PrinterPage PageOf(Printer& printer) {
    return {&printer, WidthIn, HeightOf, Draw, Begin, End, GoesOn};
}
