// The system's dialog to choose a folder.
#pragma once

#include <string>

#include "win32/windows_api.h"

// The full path of the chosen folder; empty if none was chosen or the system has no such dialog.
std::wstring AskFolder(HWND owner, const wchar_t* title);
