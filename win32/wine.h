// Wine, in which some of the system's parts behave in another way than on Windows.
#pragma once

#include "win32/windows_api.h"

// Does the program run under Wine?
inline bool IsWine() {
    return GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") != nullptr;
}
