// Apart, because it is about the loader of the system, not about files or a certain library.
#include "win32/system_library.h"

#include <string>

using SetFolders = BOOL(WINAPI*)(DWORD folders);

// Where this is missing, LoadLibraryEx does not know the flags for folders either.
static SetFolders FindSetFolders() {
    SetFolders set = nullptr;
    FindProcedure(GetModuleHandleA("kernel32.dll"), "SetDefaultDllDirectories", set);
    return set;
}

void LoadOnlySystemLibraries() {
    SetDllDirectoryW(L"");  // not the current folder
    if (const SetFolders set = FindSetFolders()) set(LOAD_LIBRARY_SEARCH_SYSTEM32);
}

static std::wstring SystemFolder() {
    wchar_t folder[MAX_PATH] = L"";
    const UINT length = GetSystemDirectoryW(folder, MAX_PATH);
    return {folder, length < MAX_PATH ? length : 0};
}

// With a path, what the library needs itself is also looked for beside it first. The common controls must be named
// without one: the system chooses their version by the program's manifest.
HMODULE SystemLibrary(const wchar_t* name) {
    if (FindSetFolders() != nullptr) return LoadLibraryExW(name, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    const std::wstring folder = SystemFolder();
    if (folder.empty()) return nullptr;
    return LoadLibraryExW((folder + L'\\' + name).c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
}
