#include "tests/windows/odd_folders.h"

namespace fs = std::filesystem;

ScratchFolder FolderWithForeignLetters() {
    ScratchFolder folder = EmptyFolder();
    folder.path /= L"\u0141ukasz \u03B1\u1F10 \u05D0\u05B8 \u4E2D\u6587 \xD83D\xDE00";
    fs::create_directory(folder.path);
    return folder;
}

ScratchFolder FolderWithLongPath() {
    static constexpr std::size_t kNameLength = 120;
    ScratchFolder folder = EmptyFolder();
    folder.path = L"\\\\?\\" + folder.path.wstring();
    for (const wchar_t letter : {L'a', L'b', L'c'}) {
        folder.path /= std::wstring(kNameLength, letter);
        if (!CreateDirectoryW(folder.path.c_str(), nullptr)) Fail(nullptr, "cannot create a long path");
    }
    return folder;
}

static void CopyTo(const ScratchFolder& folder, const fs::path& file) {
    if (!CopyFileW(file.c_str(), (folder.path / file.filename()).c_str(), TRUE))
        Fail(nullptr, "cannot copy " + file.string());
}

void CopyProgramTo(const ScratchFolder& folder) {
    CopyTo(folder, Surroundings().program);
}

void CopyScriptureTo(const ScratchFolder& folder) {
    for (const auto& entry : fs::directory_iterator(Surroundings().data))
        if (entry.path().extension() == ".dat") CopyTo(folder, entry.path());
}

void CopyHelpTo(const ScratchFolder& folder) {
    const ScratchFolder pages{folder.path / "help", nullptr};
    CreateDirectoryW(pages.path.c_str(), nullptr);
    for (const auto& entry : fs::directory_iterator(Surroundings().help))
        if (entry.is_regular_file()) CopyTo(folder, entry.path());
    for (const auto& entry : fs::directory_iterator(fs::path(Surroundings().help) / "help"))
        if (entry.is_regular_file()) CopyTo(pages, entry.path());
}

void AllowAll(const fs::path& path, DWORD rights) {
    SID_IDENTIFIER_AUTHORITY world = SECURITY_WORLD_SID_AUTHORITY;
    PSID everybody = nullptr;
    AllocateAndInitializeSid(&world, 1, SECURITY_WORLD_RID, 0, 0, 0, 0, 0, 0, 0, &everybody);
    alignas(ACL) unsigned char list[256];
    const auto acl = reinterpret_cast<PACL>(list);
    SECURITY_DESCRIPTOR descriptor{};
    InitializeAcl(acl, sizeof list, ACL_REVISION);
    AddAccessAllowedAce(acl, ACL_REVISION, rights, everybody);
    InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION);
    SetSecurityDescriptorDacl(&descriptor, TRUE, acl, FALSE);
    SetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, &descriptor);
    FreeSid(everybody);
}

static bool CanCreateFileIn(const fs::path& folder) {
    const HANDLE file = CreateFileW((folder / "trial").c_str(), GENERIC_WRITE | DELETE, 0, nullptr, CREATE_NEW,
                                    FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    return file != INVALID_HANDLE_VALUE && CloseHandle(file);
}

ReadOnlyFolder::ReadOnlyFolder(const fs::path& folder) : path(folder) {
    AllowAll(path, FILE_GENERIC_READ | FILE_GENERIC_EXECUTE);
    if (CanCreateFileIn(path)) Fail(nullptr, "the tests cannot make a folder read-only");
}

ReadOnlyFolder::~ReadOnlyFolder() {
    AllowAll(path, FILE_ALL_ACCESS);
}

static constexpr wchar_t kApplicationData[] = L"APPDATA";

WithApplicationData::WithApplicationData(const fs::path& folder) : before(_wgetenv(kApplicationData)) {
    SetEnvironmentVariableW(kApplicationData, folder.c_str());
}

WithApplicationData::~WithApplicationData() {
    SetEnvironmentVariableW(kApplicationData, before.c_str());
}

StartOptions ProgramIn(const ScratchFolder& folder) {
    StartOptions options;
    options.programFile = folder.path / fs::path(Surroundings().program).filename();
    return options;
}
