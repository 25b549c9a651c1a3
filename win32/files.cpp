#include "win32/files.h"

#include <algorithm>

// ---- Paths ----------------------------------------------------------------------------------------------------------

// The program's folder, with a trailing backslash.
static std::string ProgramFolder() {
    char path[MAX_PATH] = "";
    const DWORD length = GetModuleFileNameA(nullptr, path, MAX_PATH);
    const std::string program(path, length);
    return program.substr(0, program.find_last_of('\\') + 1);
}

std::string ProgramFilePath(const std::string& name) {
    const std::string here = WorkingFilePath(name);
    return GetFileAttributesA(here.c_str()) != INVALID_FILE_ATTRIBUTES ? here : ProgramFolder() + name;
}

std::string WorkingFilePath(const std::string& name) {
    char folder[MAX_PATH] = "";
    const DWORD length = GetCurrentDirectoryA(MAX_PATH, folder);
    std::string path(folder, length);
    if (!path.ends_with('\\')) path += '\\';
    return path + name;
}

// ---- The working folder ---------------------------------------------------------------------------------------------

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

// Only creating a file shows for sure whether it is possible; attributes and access lists are not sufficient. Deleting
// the file proves that it was created: Wine returns the name even if it was not.
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
    CreateDirectoryA(folder.c_str(), nullptr);  // may already exist
    SetCurrentDirectoryA(folder.c_str());
}

// ---- Mapping --------------------------------------------------------------------------------------------------------

bool MapWholeFile(const char* path, DWORD accessFlag, MappedFile& file) {
    const HANDLE opened = CreateFileA(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, accessFlag, nullptr);
    if (opened == INVALID_HANDLE_VALUE) return false;
    const OwnedFile owner(opened);

    LARGE_INTEGER size{};
    if (!GetFileSizeEx(opened, &size)) return false;
    if (size.QuadPart == 0) return true;  // an empty file cannot be mapped

    const OwnedFile mapping(CreateFileMappingA(opened, nullptr, PAGE_READONLY, 0, 0, nullptr));
    if (!mapping) return false;
    file.view.reset(MapViewOfFile(mapping.get(), FILE_MAP_READ, 0, 0, 0));
    if (!file.view) return false;
    file.bytes = {static_cast<const unsigned char*>(file.view.get()), static_cast<std::size_t>(size.QuadPart)};
    return true;
}
