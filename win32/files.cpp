#include "win32/files.h"

#include <algorithm>
#include <utility>

// ---- Text -----------------------------------------------------------------------------------------------------------

std::wstring Wide(std::string_view text) {
    const int size = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0');  // no code page has more letters than bytes
    wide.resize(static_cast<std::size_t>(MultiByteToWideChar(CP_ACP, 0, text.data(), size, wide.data(), size)));
    return wide;
}

std::optional<std::string> Narrow(std::wstring_view text) {
    const int size = static_cast<int>(text.size());
    std::string narrow(text.size() * 4, '\0');
    const int room = static_cast<int>(narrow.size());
    BOOL replaced = FALSE;
    const int length =
        WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, text.data(), size, narrow.data(), room, nullptr, &replaced);
    if (replaced || (length == 0 && size > 0)) return std::nullopt;
    narrow.resize(static_cast<std::size_t>(length));
    return narrow;
}

// ---- Paths ----------------------------------------------------------------------------------------------------------

static constexpr std::wstring_view kLongPrefix = L"\\\\?\\";
static constexpr std::wstring_view kLongSharePrefix = L"\\\\?\\UNC\\";
static constexpr std::wstring_view kSharePrefix = L"\\\\";

// CreateDirectory accepts twelve letters less than MAX_PATH, for a name of eight and three letters.
static constexpr std::size_t kLongPath = MAX_PATH - 12;

// The prefix also turns off the usual changes, such as removing dots at the end, so only long paths have it.
static std::wstring Reachable(std::wstring path) {
    if (path.size() < kLongPath || path.starts_with(kLongPrefix)) return path;
    if (path.starts_with(kSharePrefix)) return path.replace(0, kSharePrefix.size(), kLongSharePrefix);
    return path.insert(0, kLongPrefix);
}

std::wstring WithoutLongPrefix(const std::wstring& path) {
    if (path.starts_with(kLongSharePrefix))
        return std::wstring(kSharePrefix).append(path, kLongSharePrefix.size(), std::wstring::npos);
    return path.starts_with(kLongPrefix) ? path.substr(kLongPrefix.size()) : path;
}

static std::wstring WithBackslash(std::wstring folder) {
    if (!folder.ends_with(L'\\')) folder += L'\\';
    return folder;
}

std::wstring PathIn(const std::wstring& folder, const std::wstring& name) {
    std::wstring path = WithBackslash(WithoutLongPrefix(folder)) + name;
    std::replace(path.begin(), path.end(), L'/', L'\\');
    return Reachable(std::move(path));
}

std::wstring PathIn(const std::wstring& folder, const std::string& name) {
    return PathIn(folder, Wide(name));
}

std::wstring FolderOfPath(const std::wstring& path) {
    return path.substr(0, path.find_last_of(L'\\') + 1);
}

bool IsThere(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

bool IsMissing(const std::wstring& path) {
    if (IsThere(path)) return false;
    switch (GetLastError()) {
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
        case ERROR_INVALID_NAME:
        case ERROR_BAD_PATHNAME: return true;
    }
    return false;
}

// The text that `get(buffer, size)` gives, which returns its length, or a size that is sufficient; empty on an error.
template <typename Get>
static std::wstring TextFrom(Get get) {
    std::wstring text(MAX_PATH, L'\0');
    while (true) {
        const DWORD length = get(text.data(), static_cast<DWORD>(text.size()));
        const bool fits = length < text.size();
        text.resize(fits ? length : std::max<std::size_t>(length, text.size() * 2));
        if (fits) return text;
    }
}

std::wstring FullPath(const std::wstring& path) {
    return Reachable(
        TextFrom([&](wchar_t* text, DWORD size) { return GetFullPathNameW(path.c_str(), size, text, nullptr); }));
}

std::wstring FinalPath(HANDLE opened, const std::wstring& path) {
    const std::wstring final =
        TextFrom([&](wchar_t* text, DWORD size) { return GetFinalPathNameByHandleW(opened, text, size, 0); });
    return final.empty() ? path : Reachable(WithoutLongPrefix(final));
}

std::optional<FileIdentity> IdentityOf(const std::wstring& path) {
    const HANDLE opened = CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                      OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (opened == INVALID_HANDLE_VALUE) return std::nullopt;
    const OwnedFile owner(opened);
    BY_HANDLE_FILE_INFORMATION file{};
    if (GetFileType(opened) != FILE_TYPE_DISK || !GetFileInformationByHandle(opened, &file)) return std::nullopt;
    const std::uint64_t upper = file.nFileIndexHigh;
    return FileIdentity{file.dwVolumeSerialNumber, upper << 32 | file.nFileIndexLow};
}

std::vector<std::wstring> FilesIn(const std::wstring& folder, const char* pattern) {
    std::vector<std::wstring> names;
    WIN32_FIND_DATAW found;
    const HANDLE search = FindFirstFileW(PathIn(folder, Wide(pattern)).c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return names;
    do {
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) names.emplace_back(found.cFileName);
    } while (FindNextFileW(search, &found));
    FindClose(search);
    return names;
}

static std::wstring ShortPath(const std::wstring& path) {
    return WithoutLongPrefix(
        TextFrom([&](wchar_t* text, DWORD size) { return GetShortPathNameW(path.c_str(), text, size); }));
}

std::optional<std::string> PathInCodePage(const std::wstring& path) {
    for (const std::wstring& form : {WithoutLongPrefix(path), ShortPath(path)}) {
        const auto narrow = Narrow(form);
        if (narrow && !narrow->empty() && narrow->size() < MAX_PATH) return narrow;
    }
    return std::nullopt;
}

// ---- The folders ----------------------------------------------------------------------------------------------------

namespace {

// With trailing backslashes.
struct Folders {
    std::wstring program;
    std::wstring start;  // that was current at the start
    std::wstring working;
    bool readsFromStart = true;
    bool canWrite = true;
    bool isInstalled = false;
};

}  // namespace

static Folders FoldersAtStart() {
    const std::wstring program =
        TextFrom([](wchar_t* text, DWORD size) { return GetModuleFileNameW(nullptr, text, size); });
    const std::wstring current = TextFrom([](wchar_t* text, DWORD size) { return GetCurrentDirectoryW(size, text); });
    const std::wstring start = WithBackslash(WithoutLongPrefix(current));
    return {FolderOfPath(WithoutLongPrefix(program)), start, start};
}

static Folders& TheFolders() {
    static Folders folders = FoldersAtStart();
    return folders;
}

const std::wstring& ProgramFolder() {
    return TheFolders().program;
}

std::vector<std::wstring> ReadFolders() {
    const Folders& folders = TheFolders();
    return folders.readsFromStart ? std::vector{folders.start, folders.program} : std::vector{folders.program};
}

std::wstring ProgramFilePath(const std::string& name) {
    const std::vector<std::wstring> folders = ReadFolders();
    const std::wstring first = PathIn(folders.front(), name);
    return IsThere(first) ? first : PathIn(folders.back(), name);
}

std::wstring WorkingFilePath(const std::string& name) {
    return PathIn(TheFolders().working, name);
}

bool IsInstalledCopy() {
    return TheFolders().isInstalled;
}

const std::wstring& StartFolder() {
    return TheFolders().start;
}

// It may have been opened by another path.
bool IsStartFolderUsed() {
    const Folders& folders = TheFolders();
    const auto start = IdentityOf(folders.start);
    return folders.working == folders.start || (start && start == IdentityOf(folders.working));
}

std::wstring PassedOverFolder() {
    const Folders& folders = TheFolders();
    return folders.readsFromStart && folders.working != folders.start ? folders.start : L"";
}

bool CanWriteWorkingFolder() {
    return TheFolders().canWrite;
}

// Only creating a file shows for sure whether it is possible; attributes and access lists are not sufficient. The
// system deletes it when it is closed, even if the program is ended before.
static bool CanMakeFiles(const std::wstring& folder) {
    static constexpr int kNames = 100;
    for (int i = 0; i < kNames; ++i) {
        const std::string name = "~wf" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(i) + ".tmp";
        const HANDLE file = CreateFileW(PathIn(folder, name).c_str(), GENERIC_WRITE | DELETE, 0, nullptr, CREATE_NEW,
                                        FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
        if (file != INVALID_HANDLE_VALUE) return CloseHandle(file);
        if (GetLastError() != ERROR_FILE_EXISTS) return false;
    }
    return false;
}

static std::wstring ApplicationDataFolder() {
    return TextFrom([](wchar_t* text, DWORD size) { return GetEnvironmentVariableW(L"APPDATA", text, size); });
}

// Chooses the working folder; false if no files can be created in any.
static bool ChooseWorkingFolder(Folders& folders, const char* folderName) {
    if (folders.readsFromStart && CanMakeFiles(folders.start)) return true;
    if (folders.working = folders.program; !folders.isInstalled && CanMakeFiles(folders.working)) return true;
    if (const std::wstring applicationData = ApplicationDataFolder(); !applicationData.empty()) {
        const std::wstring folder = PathIn(applicationData, folderName);
        CreateDirectoryW(folder.c_str(), nullptr);  // may already exist
        if (folders.working = WithBackslash(WithoutLongPrefix(folder)); CanMakeFiles(folders.working)) return true;
    }
    folders.working = folders.readsFromStart ? folders.start : folders.program;
    return false;
}

void SettleWorkingFolder(std::initializer_list<const char*> markers, const char* folderName,
                         const char* installedMark) {
    Folders& folders = TheFolders();
    folders.isInstalled = IsThere(PathIn(folders.program, Wide(installedMark)));
    folders.readsFromStart = !folders.isInstalled &&
                             std::any_of(markers.begin(), markers.end(),
                                         [&](const char* marker) { return !FilesIn(folders.start, marker).empty(); });
    folders.canWrite = ChooseWorkingFolder(folders, folderName);
    if (folders.working.size() < kLongPath) SetCurrentDirectoryW(folders.working.c_str());  // the limit of the system
}

// ---- Changing files -------------------------------------------------------------------------------------------------

bool MoveWithPatience(const std::wstring& from, const std::wstring& to, DWORD flags) {
    static constexpr int kTries = 5;
    static constexpr DWORD kPause = 40;  // milliseconds
    for (int tries = 1; !MoveFileExW(from.c_str(), to.c_str(), flags | MOVEFILE_WRITE_THROUGH); ++tries) {
        const DWORD error = GetLastError();
        const bool isInUse = error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION;
        if (tries == kTries || !isInUse) return false;
        Sleep(kPause);
    }
    return true;
}

// ---- Mapping --------------------------------------------------------------------------------------------------------

bool MapWholeFile(const std::wstring& path, DWORD accessFlag, MappedFile& file) {
    const HANDLE opened =
        CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, accessFlag, nullptr);
    if (opened == INVALID_HANDLE_VALUE) return false;
    const OwnedFile owner(opened);

    LARGE_INTEGER size{};
    if (!GetFileSizeEx(opened, &size)) return false;
    if (size.QuadPart == 0) return true;  // an empty file cannot be mapped

    file.mapping.reset(CreateFileMappingA(opened, nullptr, PAGE_READONLY, 0, 0, nullptr));
    if (!file.mapping) return false;
    file.view.reset(MapViewOfFile(file.mapping.get(), FILE_MAP_READ, 0, 0, 0));
    if (!file.view) return false;
    file.bytes = {static_cast<const unsigned char*>(file.view.get()), static_cast<std::size_t>(size.QuadPart)};
    return true;
}

void MapAnew(MappedFile& file) {
    MappedView view(MapViewOfFile(file.mapping.get(), FILE_MAP_READ, 0, 0, 0));
    if (!view) return;
    file.bytes = {static_cast<const unsigned char*>(view.get()), file.bytes.size()};
    file.view = std::move(view);
}
