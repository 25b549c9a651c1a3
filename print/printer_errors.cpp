#include "print/printer_errors.h"

#include <algorithm>
#include <iterator>

// The numbers are those of the system (cderr.h).
static constexpr unsigned long kCancelled = 0;
static constexpr unsigned long kNoDefaultPrinter = 0x1008;

namespace {

struct PrinterError {
    unsigned long number;
    bool isOfPrinter;  // that was passed to the dialog
    const char* text;
};

}  // namespace

static constexpr PrinterError kErrors[] = {
    {0x0007, false, "The system could not load a part of the print dialog. It may be short of memory."},  // LOADRES
    {0x0009, false, "There is not enough memory for the print dialog."},                                  // MEMALLOC
    {0x000A, false, "There is not enough memory for the print dialog."},                                  // MEMLOCK
    {0x1001, false, "The system could not load a part of the print dialog. It may be short of memory."},  // SETUP
    {0x1002, false, "The system's list of printers cannot be read."},                                     // PARSE
    {0x1003, true, "The settings of the printer cannot be used."},                                        // RETDEF
    {0x1004, true, "The printer's driver cannot be loaded. Install the printer again."},                  // LOADDRV
    {0x1005, true, "The printer's driver does not tell its settings. Install the printer again."},        // GETDEVMODE
    {0x1006, false, "The print dialog could not be prepared."},                                           // INIT
    {0x1007, false, "No printer is installed."},                                                          // NODEVICES
    {0x1009, true, "The settings belong to another printer."},  // DNDMMISMATCH
    {0x100A, true, "The printer does not answer."},             // CREATEIC
    {0x100B, true, "The printer cannot be found."},             // PRINTERNOTFOUND
    {0x100C, true, "The default printer is another one now."},  // DEFAULTDIFFERENT
};

static const PrinterError* Find(unsigned long error) {
    const auto found = std::ranges::find(kErrors, error, &PrinterError::number);
    return found != std::end(kErrors) ? found : nullptr;
}

static std::string InHexadecimal(unsigned long number) {
    std::string digits;
    for (; number != 0; number /= 16) digits.insert(digits.begin(), "0123456789ABCDEF"[number % 16]);
    return "0x" + digits;
}

bool ConcernsRememberedPrinter(unsigned long error) {
    const PrinterError* known = Find(error);
    return known != nullptr && known->isOfPrinter;
}

std::string PrinterErrorText(unsigned long error) {
    if (error == kCancelled || error == kNoDefaultPrinter) return "";
    if (const PrinterError* known = Find(error)) return known->text;
    return "The print dialog could not be opened (error " + InHexadecimal(error) + ").";
}

std::u16string LostPrinterText(std::u16string_view name) {
    std::u16string text = u"The printer \"";
    text += name;
    return text += u"\" is not available any more. The default printer is used instead.";
}
