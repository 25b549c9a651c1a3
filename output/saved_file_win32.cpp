#include "output/saved_file_win32.h"

#include <algorithm>

#include "notes/note_files.h"
#include "output/own_files.h"
#include "win32/files.h"

// Folders of the working directory that hold nothing but the program's own files: backups, and what is kept after a
// crash.
static constexpr const char* kOwnFolders[] = {kBackupFolder, "crash"};

using Identity = std::optional<FileIdentity>;

// Letters beyond ASCII are in none of the names.
static bool IsOwnName(const std::wstring& name) {
    std::string ascii;
    for (const wchar_t letter : name) ascii += letter < 0x80 ? static_cast<char>(letter) : '?';
    return IsOwnFileName(ascii);
}

static bool IsFolder(const std::wstring& path, const Identity& folder) {
    return folder && IdentityOf(path) == folder;
}

// Is the file in the folder, or in one of its folders?
static bool IsBelow(const std::wstring& path, const Identity& folder) {
    if (!folder) return false;
    std::wstring above = FolderOfPath(path);
    while (!above.empty()) {
        if (IsFolder(above, folder)) return true;
        above.pop_back();
        above = FolderOfPath(above);
    }
    return false;
}

static std::vector<std::wstring> FoldersOfNamedFiles() {
    std::vector<std::wstring> folders = ReadFolders();
    folders.push_back(WorkingFilePath(""));
    folders.push_back(ProgramFolder());
    return folders;
}

static bool HasFile(const std::wstring& folder, bool isOwnFolder, const FileIdentity& file) {
    const std::vector<std::wstring> names = FilesIn(folder, "*");
    return std::any_of(names.begin(), names.end(), [&](const std::wstring& name) {
        return (isOwnFolder || IsOwnName(name)) && IdentityOf(PathIn(folder, name)) == file;
    });
}

bool IsOwnFile(const std::wstring& path) {
    const Identity file = IdentityOf(path);
    for (const char* name : kOwnFolders) {
        const std::wstring folder = WorkingFilePath(std::string(name) + "/");
        if (IsBelow(path, IdentityOf(folder)) || (file && HasFile(folder, true, *file))) return true;
    }
    const std::wstring name = path.substr(FolderOfPath(path).size());
    const std::vector<std::wstring> folders = FoldersOfNamedFiles();
    return std::any_of(folders.begin(), folders.end(), [&](const std::wstring& folder) {
        const bool isThere = IsOwnName(name) && IsFolder(FolderOfPath(path), IdentityOf(folder));
        return isThere || (file && HasFile(folder, false, *file));
    });
}
