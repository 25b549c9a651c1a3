#include "win32/program_files.h"

#include "win32/windows_api.h"

std::string ProgramFolder() {
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
