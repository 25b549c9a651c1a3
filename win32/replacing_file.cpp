#include "win32/replacing_file.h"

#include <vector>

#include "win32/files.h"

// CREATE_ALWAYS fails for files with these.
static constexpr DWORD kProtectingAttributes = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;

static OwnedFile OpenToWrite(const std::wstring& path, DWORD disposition) {
    const HANDLE file =
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
    return OwnedFile(file == INVALID_HANDLE_VALUE ? nullptr : file);
}

static ReplacingFile WriteDirectly(const std::wstring& path) {
    return {OpenToWrite(path, CREATE_ALWAYS), path};
}

static ReplacingFile WriteBeside(const std::wstring& path) {
    static constexpr int kNames = 100;
    for (int i = 0; i < kNames; ++i) {
        const std::string name = "~save" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(i) + ".tmp";
        std::wstring temporary = PathIn(FolderOfPath(path), name);
        if (OwnedFile file = OpenToWrite(temporary, CREATE_NEW)) return {std::move(file), path, std::move(temporary)};
        if (GetLastError() != ERROR_FILE_EXISTS) break;
    }
    return {};
}

ReplacingFile BeginReplacing(const std::wstring& path) {
    const OwnedFile existing = OpenToWrite(path, OPEN_EXISTING);
    const DWORD error = existing ? ERROR_SUCCESS : GetLastError();
    if (existing && GetFileType(existing.get()) == FILE_TYPE_DISK) {
        const bool isProtected = (GetFileAttributesW(path.c_str()) & kProtectingAttributes) != 0;
        return isProtected ? ReplacingFile{} : WriteBeside(FinalPath(existing.get(), path));
    }
    if (error == ERROR_FILE_NOT_FOUND && IsThere(FolderOfPath(path))) return WriteBeside(path);
    if (error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION) return {};
    return WriteDirectly(path);
}

// Where a file system has no access rights, there are none to copy.
static void CopyAccessRights(const std::wstring& from, const std::wstring& to) {
    DWORD size = 0;
    GetFileSecurityW(from.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    std::vector<unsigned char> bytes(size);
    const PSECURITY_DESCRIPTOR rights = bytes.data();
    if (size == 0 || !GetFileSecurityW(from.c_str(), DACL_SECURITY_INFORMATION, rights, size, &size)) return;
    // Otherwise rights inherited from the folder would become rights of the file's own.
    SECURITY_DESCRIPTOR_CONTROL control = 0;
    DWORD revision = 0;
    if (GetSecurityDescriptorControl(rights, &control, &revision) && (control & SE_DACL_AUTO_INHERITED) != 0)
        SetSecurityDescriptorControl(rights, SE_DACL_AUTO_INHERIT_REQ, SE_DACL_AUTO_INHERIT_REQ);
    SetFileSecurityW(to.c_str(), DACL_SECURITY_INFORMATION, rights);
}

// A file that is new has the rights of its folder.
static void CopyAttributes(const std::wstring& from, const std::wstring& to) {
    const DWORD attributes = GetFileAttributesW(from.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return;
    CopyAccessRights(from, to);
    SetFileAttributesW(to.c_str(), attributes);
}

static bool PutInPlace(const ReplacingFile& replacing) {
    CopyAttributes(replacing.path, replacing.temporary);
    return MoveWithPatience(replacing.temporary, replacing.path, MOVEFILE_REPLACE_EXISTING);
}

bool EndReplacing(ReplacingFile& replacing, bool isWhole) {
    if (!replacing.file) return false;
    const bool isDirect = replacing.temporary.empty();
    const bool isOnDisk = isWhole && (isDirect || FlushFileBuffers(replacing.file.get()));
    replacing.file.reset();
    if (isDirect) return isWhole;
    if (isOnDisk && PutInPlace(replacing)) return true;
    DeleteFileW(replacing.temporary.c_str());
    return false;
}
