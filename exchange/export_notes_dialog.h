// The dialog that writes the notes of a set to a file for other programs.
#pragma once

#include <optional>
#include <string>

#include "exchange/export_choices.h"
#include "win32/windows_api.h"

// Opens the dialog over `frame`. It closes when a file has been written, whose path was asked for; a file that cannot
// be written is as it was before, and the dialog says why and stays. Returns the sentence for the status bar; nullopt
// if nothing was exported.
std::optional<std::string> AskExport(HWND frame, ExportChoices& choices);
