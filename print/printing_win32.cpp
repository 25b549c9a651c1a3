#include "print/printing_win32.h"

#include "print/printer_dialogs_win32.h"
#include "print/printer_win32.h"
#include "resources/ids.h"
#include "win32/controls.h"
#include "win32/screen.h"

namespace {

// The current print job.
struct Printing {
    HWND dialog = nullptr;  // "Printing..."; null if there is no job
    bool goesOn = false;    // false once the user has cancelled
};

}  // namespace
static Printing thePrinting;

// ---- Cancelling a job -----------------------------------------------------------------------------------------------

static INT_PTR CALLBACK PrintingProcedure(HWND dialog, UINT message, WPARAM, LPARAM) {
    if (message == WM_INITDIALOG) PlaceDialog(dialog);
    if (message == WM_COMMAND) thePrinting.goesOn = false;
    return message == WM_INITDIALOG || message == WM_COMMAND;
}

// Processes all waiting messages, including the user's Cancel. WM_QUIT also cancels the job and is posted again for the
// program's own message loop.
static BOOL CALLBACK AbortProcedure(HDC, int) {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            thePrinting.goesOn = false;
            PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        if (thePrinting.dialog && IsDialogMessageA(thePrinting.dialog, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return thePrinting.goesOn;
}

static void TellPage(int page) {
    SetDlgItemTextA(thePrinting.dialog, IDC_PRINTED_PAGE, ("Page " + std::to_string(page)).c_str());
}

// The system may call the abort procedure only once in a job, so it is also called before each verse.
static bool GoesOn() {
    return AbortProcedure(nullptr, 0) != FALSE;
}

bool IsPrinting() {
    return thePrinting.dialog != nullptr;
}

static void BeginJob(HWND frame) {
    thePrinting.goesOn = true;
    thePrinting.dialog = CreateDialogParamA(GetModuleHandleA(nullptr), "ABORTDLG", frame, PrintingProcedure, 0);
    ShowWindow(thePrinting.dialog, SW_SHOW);
    UpdateWindow(thePrinting.dialog);
    EnableWindow(frame, FALSE);
}

// The frame is enabled before the dialog is destroyed; otherwise the system would activate another program.
static void EndJob(HWND frame) {
    EnableWindow(frame, TRUE);
    DestroyWindow(thePrinting.dialog);
    thePrinting.dialog = nullptr;
}

// ---- The document ---------------------------------------------------------------------------------------------------

static void ComplainUnlessStopped(const char* problem) {
    if (thePrinting.goesOn) Complain(thePrinting.dialog, problem, kPrintErrorCaption);
}

static const char* ProblemOf(PrintResult result) {
    return result == PrintResult::kCannotStartPage   ? "StartPage failure"
           : result == PrintResult::kCannotReadNotes ? kCannotOpenNotes
                                                     : nullptr;
}

static void PrintOn(Printer& printer, const PrintedDocument& document) {
    const HDC dc = printer.dc.get();
    DOCINFOA info{};
    info.cbSize = sizeof info;
    info.lpszDocName = document.name;
    if (StartDocA(dc, &info) <= 0) return ComplainUnlessStopped("StartDoc failure");
    MakeFaces(printer, document.verseFont, document.noteFont);
    const PrintResult result = PrintVerses(document.scripture, document.verses, document.options, PageOf(printer));
    if (const char* problem = ProblemOf(result)) ComplainUnlessStopped(problem);
    const bool ended = EndDoc(dc) > 0;
    if (!ended && result == PrintResult::kPrinted) ComplainUnlessStopped("EndDoc failure");
}

static PageMargins MarginsOf(const RECT& margins) {
    return {static_cast<int>(margins.left), static_cast<int>(margins.top), static_cast<int>(margins.right),
            static_cast<int>(margins.bottom)};
}

void PrintDocument(HWND frame, OwnedDc dc, const RECT& margins, PrintedDocument document) {
    Printer printer;
    printer.dc = std::move(dc);
    printer.goesOn = GoesOn;
    printer.tellPage = TellPage;
    const PrinterResolution resolution = ResolutionOf(printer.dc.get());
    document.options.box = PageBoxFor(resolution, MarginsOf(margins));
    document.options.tabDistance = TabDistanceFor(resolution);
    SetAbortProc(printer.dc.get(), AbortProcedure);
    BeginJob(frame);
    PrintOn(printer, document);
    EndJob(frame);
}
