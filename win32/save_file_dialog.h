// The system's dialog for a file to save into.
#pragma once

#include <string>

#include "win32/windows_api.h"

inline constexpr char kSaveErrorCaption[] = "Save Error";

// Asks over `owner` for a text file to write, starting with `name`. A file that is there already is only taken after a
// question; its folder must be there; the name gets no extension that was not typed. Gives the path, empty where the
// user cancels. The current directory stays.
std::string AskTextFileToSave(HWND owner, const std::string& name);
