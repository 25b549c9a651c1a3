#include "print/printer_dialogs_win32.h"

#include <winspool.h>

#include <array>
#include <functional>
#include <string>

#include "print/printer_errors.h"
#include "win32/code_page.h"
#include "win32/controls.h"
#include "win32/system_library.h"

namespace {

// The procedures of winspool.drv. The linker would make the program load it at the start, from any folder.
struct Spooler {
    decltype(&OpenPrinterW) open = nullptr;
    decltype(&ClosePrinter) close = nullptr;
    decltype(&GetDefaultPrinterW) getDefault = nullptr;
    bool isThere = false;
};

}  // namespace

static Spooler FindSpooler() {
    Spooler found;
    const HMODULE library = SystemLibrary(L"winspool.drv");
    found.isThere = FindProcedure(library, "OpenPrinterW", found.open) &&
                    FindProcedure(library, "ClosePrinter", found.close) &&
                    FindProcedure(library, "GetDefaultPrinterW", found.getDefault);
    return found;
}

static const Spooler& TheSpooler() {
    static const Spooler spooler = FindSpooler();
    return spooler;
}

// ---- The remembered printer -----------------------------------------------------------------------------------------

static std::wstring RememberedPrinter(const PAGESETUPDLGW& setup) {
    if (setup.hDevNames == nullptr) return L"";
    const auto* names = static_cast<const DEVNAMES*>(GlobalLock(setup.hDevNames));
    if (names == nullptr) return L"";
    const std::wstring name = reinterpret_cast<const wchar_t*>(names) + names->wDeviceOffset;
    GlobalUnlock(setup.hDevNames);
    return name;
}

// Only if the system says that there is no such printer: others may only be out of reach for the moment.
static bool IsGone(std::wstring name) {
    const Spooler& spooler = TheSpooler();
    if (!spooler.isThere) return false;
    HANDLE printer = nullptr;
    if (!spooler.open(name.data(), &printer, nullptr)) return GetLastError() == ERROR_INVALID_PRINTER_NAME;
    spooler.close(printer);
    return false;
}

static bool HasDefaultPrinter() {
    DWORD length = 0;
    if (const Spooler& spooler = TheSpooler(); spooler.isThere) spooler.getDefault(nullptr, &length);
    return length > 0;
}

static void ForgetPrinter(PAGESETUPDLGW& setup) {
    GlobalFree(setup.hDevMode);
    GlobalFree(setup.hDevNames);
    setup.hDevMode = nullptr;
    setup.hDevNames = nullptr;
}

// Without a default printer the system has something to say; that is enough.
static void LosePrinter(HWND frame, PAGESETUPDLGW& setup) {
    const std::wstring name = RememberedPrinter(setup);
    ForgetPrinter(setup);
    if (HasDefaultPrinter()) Complain(frame, Wide(LostPrinterText(LettersOf(name))), kPrintErrorCaption);
}

// ---- The first printer ----------------------------------------------------------------------------------------------

void NoteFirstPrinter(PrinterSetup& setup) {
    std::array<wchar_t, 1024> device{};
    GetProfileStringW(L"windows", L"device", L"", device.data(), static_cast<DWORD>(device.size()));
    const std::wstring text = device.data();  // its name, driver and port, separated by commas
    setup.firstPrinter = text.substr(0, text.find(L','));
}

// Without settings of the printer, so that the dialogs take those that the system has for it. Its record counts in
// letters.
static HGLOBAL NamesOf(const std::wstring& printer) {
    const std::size_t names = sizeof(DEVNAMES) / sizeof(wchar_t), size = names + printer.size() + 1;
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, size * sizeof(wchar_t));
    if (block == nullptr) return nullptr;
    auto* const record = static_cast<DEVNAMES*>(GlobalLock(block));
    record->wDeviceOffset = static_cast<WORD>(names);
    record->wDriverOffset = record->wOutputOffset = static_cast<WORD>(size - 1);  // empty
    printer.copy(reinterpret_cast<wchar_t*>(record) + names, printer.size());
    GlobalUnlock(block);
    return block;
}

static PAGESETUPDLGW& PageOf(PrinterSetup& setup) {
    static constexpr LONG kMargin = 1000;
    PAGESETUPDLGW& page = setup.page;
    if (setup.isRead) return page;
    setup.isRead = true;
    page.lStructSize = sizeof page;
    page.Flags = PSD_RETURNDEFAULT | PSD_NOWARNING;
    page.rtMargin = {kMargin, kMargin, kMargin, kMargin};
    PageSetupDlgW(&page);
    if (setup.firstPrinter.empty() || RememberedPrinter(page) == setup.firstPrinter) return page;
    ForgetPrinter(page);
    page.hDevNames = NamesOf(setup.firstPrinter);
    return page;
}

// ---- Asking ---------------------------------------------------------------------------------------------------------

// Returns what `ask`, which opens a dialog, returned at last.
static bool Asked(HWND frame, PAGESETUPDLGW& setup, const std::function<bool()>& ask) {
    if (const std::wstring name = RememberedPrinter(setup); !name.empty() && IsGone(name)) LosePrinter(frame, setup);
    if (ask()) return true;
    DWORD error = CommDlgExtendedError();
    if (setup.hDevNames != nullptr && ConcernsRememberedPrinter(error)) {
        LosePrinter(frame, setup);
        if (ask()) return true;
        error = CommDlgExtendedError();
    }
    const std::string text = PrinterErrorText(error);
    if (!text.empty()) Complain(frame, text.c_str(), kPrintErrorCaption);
    return false;
}

void AskPageSetup(HWND frame, PrinterSetup& printerSetup) {
    PAGESETUPDLGW& setup = PageOf(printerSetup);
    Asked(frame, setup, [&] {
        PAGESETUPDLGW asked = setup;
        asked.hwndOwner = frame;
        asked.Flags = PSD_MARGINS;
        const bool chosen = PageSetupDlgW(&asked);
        if (chosen) setup = asked;
        setup.hDevMode = asked.hDevMode;  // the system may have replaced them even if the user cancelled
        setup.hDevNames = asked.hDevNames;
        return chosen;
    });
}

OwnedDc AskPrinter(HWND frame, PrinterSetup& printerSetup) {
    PAGESETUPDLGW& setup = PageOf(printerSetup);
    OwnedDc dc;
    const bool chosen = Asked(frame, setup, [&] {
        PRINTDLGW asked{};
        asked.lStructSize = sizeof asked;
        asked.hwndOwner = frame;
        asked.hDevMode = setup.hDevMode;
        asked.hDevNames = setup.hDevNames;
        asked.nCopies = 1;
        asked.Flags = PD_RETURNDC | PD_NOPAGENUMS | PD_NOSELECTION | PD_HIDEPRINTTOFILE | PD_USEDEVMODECOPIESANDCOLLATE;
        const bool isChosen = PrintDlgW(&asked);
        setup.hDevMode = asked.hDevMode;
        setup.hDevNames = asked.hDevNames;
        dc.reset(asked.hDC);
        return isChosen;
    });
    if (!chosen) return nullptr;
    if (!dc) Complain(frame, "The printer could not be opened.", kPrintErrorCaption);
    return dc;
}
