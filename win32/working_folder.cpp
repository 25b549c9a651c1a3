#include "win32/working_folder.h"

#include <algorithm>
#include <string>

#include "win32/program_files.h"
#include "win32/windows_api.h"

static bool HoldsFile(const char* pattern) {
    WIN32_FIND_DATAA found;
    const HANDLE search = FindFirstFileA(WorkingFilePath(pattern).c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return false;
    bool isFile = false;
    do {
        isFile = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
    } while (!isFile && FindNextFileA(search, &found));
    FindClose(search);
    return isFile;
}

// Attributes and access lists do not tell everything; only making a file does. That it can be taken away again shows
// that it was made: under Wine the name comes back even where it was not.
static bool CanMakeFiles(const std::string& folder) {
    char path[MAX_PATH];
    return GetTempFileNameA(folder.c_str(), "~wf", 0, path) != 0 && DeleteFileA(path);
}

static std::string ApplicationDataFolder() {
    char path[MAX_PATH];
    const DWORD length = GetEnvironmentVariableA("APPDATA", path, MAX_PATH);
    return length > 0 && length < MAX_PATH ? path : "";
}

void SettleWorkingFolder(std::initializer_list<const char*> markers, const char* folderName) {
    if (std::any_of(markers.begin(), markers.end(), HoldsFile)) return;
    if (CanMakeFiles(ProgramFolder())) {
        SetCurrentDirectoryA(ProgramFolder().c_str());
        return;
    }
    const std::string applicationData = ApplicationDataFolder();
    if (applicationData.empty()) return;
    const std::string folder = applicationData + '\\' + folderName;
    CreateDirectoryA(folder.c_str(), nullptr);  // may be there already
    SetCurrentDirectoryA(folder.c_str());
}
