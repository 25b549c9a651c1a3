#include "notes/note_files_win32.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

#include "notes/file_names.h"
#include "notes/read_only_files.h"
#include "win32/code_page.h"
#include "win32/files.h"

NoteSets theNoteSets;

static const std::wstring& FolderOf(void* device) {
    return *static_cast<const std::wstring*>(device);
}

// Empty, which no file can be reached by, for a name that leads elsewhere, whatever text it came from.
static std::wstring PathOf(void* device, const std::string& name) {
    return StaysInFolder(name) ? PathIn(FolderOf(device), name) : L"";
}

// ---- Whole files ----------------------------------------------------------------------------------------------------

// A name with letters that the code page lacks is left out: the notes could not name the file, or would name another.
// So is that of a device, which other systems may give a file.
static std::vector<std::string> List(void* device, const std::string& pattern) {
    std::vector<std::string> names;
    for (const std::wstring& found : FilesIn(FolderOf(device), pattern.c_str()))
        if (auto name = Narrow(found); name && IsFileName(*name)) names.push_back(std::move(*name));
    return names;
}

// Files with a longer extension, which the system also finds, are not counted.
static std::size_t CountUnnamed(void* device, const std::string& pattern) {
    const std::wstring ending = Wide(std::string_view(pattern).substr(1));
    const std::vector<std::wstring> found = FilesIn(FolderOf(device), pattern.c_str());
    return static_cast<std::size_t>(std::ranges::count_if(found, [&](const std::wstring& name) {
        return !Narrow(name) && name.size() >= ending.size() &&
               lstrcmpiW(name.c_str() + name.size() - ending.size(), ending.c_str()) == 0;
    }));
}

static OwnedFile OpenToRead(void* device, const std::string& name) {
    const std::wstring path = PathOf(device, name);
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    return OwnedFile(file == INVALID_HANDLE_VALUE ? nullptr : file);
}

// Returns the number of bytes read; 0 on an error.
static std::size_t ReadFrom(HANDLE file, std::uint64_t offset, std::span<unsigned char> bytes) {
    LARGE_INTEGER place;
    place.QuadPart = static_cast<LONGLONG>(offset);
    DWORD read = 0;
    const bool done = SetFilePointerEx(file, place, nullptr, FILE_BEGIN) &&
                      ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr);
    return done ? read : 0;
}

static bool Read(void* device, const std::string& name, std::uint64_t offset, std::size_t limit,
                 std::vector<unsigned char>& bytes) {
    const OwnedFile file = OpenToRead(device, name);
    if (!file) return false;
    bytes.resize(limit);
    bytes.resize(ReadFrom(file.get(), offset, bytes));
    return true;
}

static std::uint64_t Size(void* device, const std::string& name) {
    const OwnedFile file = OpenToRead(device, name);
    LARGE_INTEGER size{};
    return file && GetFileSizeEx(file.get(), &size) ? static_cast<std::uint64_t>(size.QuadPart) : 0;
}

static std::uint64_t Joined(DWORD high, DWORD low) {
    return static_cast<std::uint64_t>(high) << 32 | low;
}

static NoteFileStamp Stamp(void* device, const std::string& name) {
    WIN32_FILE_ATTRIBUTE_DATA file;
    if (!GetFileAttributesExW(PathOf(device, name).c_str(), GetFileExInfoStandard, &file)) return {};
    if ((file.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return {};
    return {true, Joined(file.nFileSizeHigh, file.nFileSizeLow),
            Joined(file.ftLastWriteTime.dwHighDateTime, file.ftLastWriteTime.dwLowDateTime)};
}

static void* OpenUnshared(void* device, const std::string& name, DWORD access, DWORD disposition) {
    const HANDLE file =
        CreateFileW(PathOf(device, name).c_str(), access, 0, nullptr, disposition, FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
    return file == INVALID_HANDLE_VALUE ? nullptr : file;
}

static bool Write(void*, void* file, std::span<const unsigned char> bytes) {
    DWORD written = 0;
    return WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
           written == bytes.size();
}

// Deletes the new file if it could not be written completely.
static bool Create(void* device, const std::string& name, std::span<const unsigned char> bytes) {
    OwnedFile file(OpenUnshared(device, name, GENERIC_WRITE, CREATE_NEW));
    if (!file) return false;
    const bool whole = Write(device, file.get(), bytes) && FlushFileBuffers(file.get());
    file.reset();
    if (!whole) DeleteFileW(PathOf(device, name).c_str());
    return whole;
}

static bool Remove(void* device, const std::string& name) {
    return DeleteFileW(PathOf(device, name).c_str());
}

static bool Rename(void* device, const std::string& from, const std::string& to) {
    return MoveWithPatience(PathOf(device, from), PathOf(device, to), 0);
}

static bool Replace(void* device, const std::string& from, const std::string& to) {
    return MoveWithPatience(PathOf(device, from), PathOf(device, to), MOVEFILE_REPLACE_EXISTING);
}

static bool Append(void* device, const std::string& name, std::span<const unsigned char> bytes) {
    const HANDLE file = CreateFileW(PathOf(device, name).c_str(), FILE_APPEND_DATA, 0, nullptr, OPEN_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    const OwnedFile owned(file);
    return Write(device, file, bytes) && FlushFileBuffers(file);
}

static bool Link(void* device, const std::string& from, const std::string& to) {
    return CreateHardLinkW(PathOf(device, to).c_str(), PathOf(device, from).c_str(), nullptr);
}

static bool MakeFolder(void* device, const std::string& name) {
    const std::wstring path = PathOf(device, name);
    if (CreateDirectoryW(path.c_str(), nullptr)) return true;
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// ---- Open files -----------------------------------------------------------------------------------------------------

static void* Open(void* device, const std::string& name) {
    return OpenUnshared(device, name, GENERIC_READ, OPEN_EXISTING);
}

static void* OpenShared(void* device, const std::string& name) {
    return OpenToRead(device, name).release();
}

static void* CreateAnew(void* device, const std::string& name) {
    return OpenUnshared(device, name, GENERIC_WRITE, CREATE_ALWAYS);
}

static std::size_t ReadAt(void*, void* file, std::uint64_t offset, std::span<unsigned char> bytes) {
    return ReadFrom(file, offset, bytes);
}

static bool Flush(void*, void* file) {
    return FlushFileBuffers(file);
}

static void Close(void*, void* file) {
    CloseHandle(file);
}

// ---- The lock -------------------------------------------------------------------------------------------------------

namespace {

struct LockedFolder {
    void* device = nullptr;
    OwnedFile file;                                  // if it is locked
    int locks = 0;                                   // how many have not been unlocked yet
    NoteLocking locking = NoteLocking::kImpossible;  // the result of the first of them
};

}  // namespace

// The thread that opens the sets at the start uses it while the others wait.
static LockedFolder theLockedFolder;

static HANDLE OpenSharedByAll(const std::wstring& path) {
    return CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE,
                       FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_ALWAYS,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
}

static OwnedFile OpenLock(void* device) {
    const std::wstring path = PathOf(device, kLockFile);
    HANDLE file = OpenSharedByAll(path);
    if (file == INVALID_HANDLE_VALUE && GetLastError() == ERROR_PATH_NOT_FOUND && MakeFolder(device, kBackupFolder))
        file = OpenSharedByAll(path);
    return OwnedFile(file == INVALID_HANDLE_VALUE ? nullptr : file);
}

static NoteLocking TryToLock(HANDLE file) {
    OVERLAPPED firstByte{};
    if (LockFileEx(file, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &firstByte))
        return NoteLocking::kLocked;
    return GetLastError() == ERROR_LOCK_VIOLATION ? NoteLocking::kBusy : NoteLocking::kImpossible;
}

// Tries often, because one who saves many notes leaves the lock alone for short moments only.
static NoteLocking LockWithPatience(HANDLE file, int milliseconds) {
    static constexpr DWORD kPause = 1;
    const std::uint64_t start = GetTickCount64();
    NoteLocking state = TryToLock(file);
    while (state == NoteLocking::kBusy && GetTickCount64() - start < static_cast<std::uint64_t>(milliseconds)) {
        Sleep(kPause);
        state = TryToLock(file);
    }
    return state;
}

static NoteLocking LockAnew(void* device, int milliseconds) {
    OwnedFile file = OpenLock(device);
    if (!file) return NoteLocking::kImpossible;
    const NoteLocking state = LockWithPatience(file.get(), milliseconds);
    if (state == NoteLocking::kLocked) theLockedFolder.file = std::move(file);
    return state;
}

static NoteLocking Lock(void* device, int milliseconds) {
    LockedFolder& locked = theLockedFolder;
    if (locked.locks > 0 && locked.device != device) return NoteLocking::kImpossible;  // one folder at a time
    locked.device = device;
    if (locked.locks++ == 0) locked.locking = LockAnew(device, milliseconds);
    return locked.locking;
}

// The lock of a file that is only closed may stay for a while.
static void Unlock(void* device) {
    LockedFolder& locked = theLockedFolder;
    if (locked.device != device || --locked.locks > 0 || !locked.file) return;
    UnlockFile(locked.file.get(), 0, 0, 1, 0);
    locked.file.reset();
}

// ---- Letters --------------------------------------------------------------------------------------------------------

static std::u16string LettersOfBytes(void*, std::string_view bytes) {
    return LettersOf(WideOfCodePage(bytes));
}

static bool BytesOfLetters(void*, std::u16string_view letters, std::string& bytes) {
    const auto converted = InCodePage(Wide(letters));
    if (converted) bytes = *converted;
    return converted.has_value();
}

static CodePage SystemCodePage() {
    return {nullptr, LettersOfBytes, BytesOfLetters};
}

// ---- The device -----------------------------------------------------------------------------------------------------

NoteFiles NoteFilesIn(std::wstring& folder) {
    return {
        .device = &folder,
        .list = List,
        .countUnnamed = CountUnnamed,
        .read = Read,
        .size = Size,
        .stamp = Stamp,
        .create = Create,
        .remove = Remove,
        .rename = Rename,
        .replace = Replace,
        .append = Append,
        .link = Link,
        .makeFolder = MakeFolder,
        .open = Open,
        .openShared = OpenShared,
        .createAnew = CreateAnew,
        .readAt = ReadAt,
        .write = Write,
        .flush = Flush,
        .close = Close,
        .lock = Lock,
        .unlock = Unlock,
        .codePage = SystemCodePage(),
    };
}

const NoteFiles& TheNoteFiles() {
    static std::wstring folder = WorkingFilePath("");
    static const NoteFiles onDisk = NoteFilesIn(folder);
    static ReadOnlyFiles readOnly{onDisk};
    static const NoteFiles files = CanWriteWorkingFolder() ? onDisk : DeviceOver(readOnly);
    return files;
}

// ---- The time -------------------------------------------------------------------------------------------------------

static std::string DayOf(const SYSTEMTIME& now) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%04u-%02u-%02u", now.wYear % 10000u, now.wMonth % 100u, now.wDay % 100u);
    return text.data();
}

// A FILETIME counts tenths of a microsecond since 1601.
static std::int64_t SecondsSince1970() {
    static constexpr std::uint64_t kSecond = 10'000'000;
    static constexpr std::int64_t kFrom1601To1970 = 11'644'473'600;
    FILETIME now{};
    GetSystemTimeAsFileTime(&now);
    return static_cast<std::int64_t>(Joined(now.dwHighDateTime, now.dwLowDateTime) / kSecond) - kFrom1601To1970;
}

NoteTime NoteTimeNow() {
    SYSTEMTIME local{};
    GetLocalTime(&local);
    return {DayOf(local), SecondsSince1970(), (local.wHour * 60 + local.wMinute) * 60 + local.wSecond};
}
