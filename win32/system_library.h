// Libraries of the system that are looked up at run time. They are only taken from the system's own folder: another
// file of such a name, beside a copy of the program or in the folder that it is started in, may be anyone's.
#pragma once

#include "win32/windows_api.h"

// From now on, libraries that are named without a folder are only looked for in the system's folder, also by the system
// itself; before Windows 8 without its update of 2011 (KB2533623), only no longer in the current folder.
void LoadOnlySystemLibraries();

// The library of that name in the system's folder, which stays loaded; null if there is none.
HMODULE SystemLibrary(const wchar_t* name);

// Sets `procedure` to the library's procedure of that name. False, and null, if there is no such library or procedure.
template <typename Procedure>
bool FindProcedure(HMODULE library, const char* name, Procedure& procedure) {
    void* const found = library == nullptr ? nullptr : reinterpret_cast<void*>(GetProcAddress(library, name));
    procedure = reinterpret_cast<Procedure>(found);
    return procedure != nullptr;
}
