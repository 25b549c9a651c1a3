// Errors of the system's print dialogs, in words.
#pragma once

#include <string>
#include <string_view>

// Does `error` (CommDlgExtendedError) concern the printer whose settings were passed to the dialog? Then the dialog can
// be opened again without them, which means the default printer.
bool ConcernsRememberedPrinter(unsigned long error);

// What to tell the user after a dialog failed with `error`; empty after Cancel (0), and if there is no default printer,
// which the system tells itself.
std::string PrinterErrorText(unsigned long error);

// What to tell the user when the printer `name` is not used any more.
std::u16string LostPrinterText(std::u16string_view name);
