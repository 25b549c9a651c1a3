// The system's dialog for choosing a file to save to.
#pragma once

#include <string>

#include "win32/windows_api.h"

inline constexpr char kSaveErrorCaption[] = "Save Error";

// Asks over `owner` for a text file to write, suggesting `name` with "." for each character that no file name may have.
// An existing file has to be confirmed; the folder must exist; no extension is added to the name. Returns the path, or
// an empty string if the user cancels. The current directory does not change.
std::wstring AskTextFileToSave(HWND owner, const std::string& name);
