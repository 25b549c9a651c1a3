#include "notes/note_files_win32.h"

#include "win32/handles.h"
#include "win32/program_files.h"

static const std::string& FolderOf(void* device) {
    return *static_cast<const std::string*>(device);
}

static std::vector<std::string> ListIndexFiles(void* device) {
    std::vector<std::string> names;
    WIN32_FIND_DATAA found;
    const HANDLE search = FindFirstFileA((FolderOf(device) + "*.nmi").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return names;
    do {
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) names.emplace_back(found.cFileName);
    } while (FindNextFileA(search, &found));
    FindClose(search);
    return names;
}

static OwnedFile OpenToRead(void* device, const std::string& name) {
    const std::string path = FolderOf(device) + name;
    const HANDLE file = CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    return OwnedFile(file == INVALID_HANDLE_VALUE ? nullptr : file);
}

static bool Read(void* device, const std::string& name, std::uint64_t offset, std::size_t limit,
                 std::vector<unsigned char>& bytes) {
    const OwnedFile file = OpenToRead(device, name);
    if (!file) return false;
    LARGE_INTEGER place;
    place.QuadPart = static_cast<LONGLONG>(offset);
    DWORD read = 0;
    bytes.resize(limit);
    if (!SetFilePointerEx(file.get(), place, nullptr, FILE_BEGIN) ||
        !ReadFile(file.get(), bytes.data(), static_cast<DWORD>(limit), &read, nullptr))
        read = 0;
    bytes.resize(read);
    return true;
}

static std::uint64_t Size(void* device, const std::string& name) {
    const OwnedFile file = OpenToRead(device, name);
    LARGE_INTEGER size{};
    return file && GetFileSizeEx(file.get(), &size) ? static_cast<std::uint64_t>(size.QuadPart) : 0;
}

// A new file, or nothing: what could not be written whole is taken away again.
static bool Create(void* device, const std::string& name, std::span<const unsigned char> bytes) {
    const std::string path = FolderOf(device) + name;
    const HANDLE created =
        CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (created == INVALID_HANDLE_VALUE) return false;
    OwnedFile file(created);
    DWORD written = 0;
    const bool whole = WriteFile(created, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
                       written == bytes.size();
    file.reset();
    if (!whole) DeleteFileA(path.c_str());
    return whole;
}

NoteFiles WorkingFolderNoteFiles() {
    static std::string folder = WorkingFilePath("");
    return {&folder, ListIndexFiles, Read, Size, Create};
}
