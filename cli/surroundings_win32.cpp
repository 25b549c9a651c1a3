// What `vw` asks of Windows. Its texts are in UTF-8, the system's in UTF-16.
#include "cli/native_surroundings.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <list>

#include "notes/note_files_win32.h"
#include "scripture/letters.h"
#include "win32/files.h"
#include "win32/replacing_file.h"

// Needs what the others declare.
#include <shellapi.h>

namespace {

struct NativeDevice {
    UINT codePage = 0;     // of the console before this program
    DWORD outputMode = 0;  // the same
    bool isConsole = false;
    std::FILE* pager = nullptr;
    std::vector<MappedFile> mapped;
    std::list<std::wstring> folders;
    std::list<NoteFiles> noteFiles;
};

}  // namespace

static NativeDevice& TheDevice() {
    static NativeDevice device;
    return device;
}

// ---- Letters --------------------------------------------------------------------------------------------------------

static std::wstring WideOfUtf8(std::string_view text) {
    const int size = static_cast<int>(text.size());
    const int room = MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(std::max(room, 0)), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), room);
    return wide;
}

static std::string Utf8OfWide(std::wstring_view wide) {
    const int size = static_cast<int>(wide.size());
    const int room = WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, nullptr, 0, nullptr, nullptr);
    std::string text(static_cast<std::size_t>(std::max(room, 0)), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, text.data(), room, nullptr, nullptr);
    return text;
}

static std::optional<std::string> Variable(void*, const char* name) {
    const std::wstring wideName = WideOfUtf8(name);
    const DWORD room = GetEnvironmentVariableW(wideName.c_str(), nullptr, 0);
    if (room == 0) return std::nullopt;
    std::wstring value(room, L'\0');
    value.resize(GetEnvironmentVariableW(wideName.c_str(), value.data(), room));
    return Utf8OfWide(value);
}

// ---- Files ----------------------------------------------------------------------------------------------------------

static std::wstring PathOf(const std::string& path) {
    return FullPath(WideOfUtf8(path));
}

static std::vector<std::string> List(void*, const std::string& folder, std::string_view ending) {
    std::vector<std::string> names;
    for (const std::wstring& name : FilesIn(PathOf(folder), ("*" + std::string(ending)).c_str()))
        if (std::string utf8 = Utf8OfWide(name); utf8.ends_with(ending)) names.push_back(std::move(utf8));
    std::ranges::sort(names);
    return names;
}

static bool Map(void* device, const std::string& path, std::span<const unsigned char>& bytes) {
    MappedFile file;
    if (!MapWholeFile(PathOf(path), FILE_FLAG_RANDOM_ACCESS, file)) return false;
    bytes = file.bytes;
    static_cast<NativeDevice*>(device)->mapped.push_back(std::move(file));
    return true;
}

static std::optional<std::string> ReadFile(void*, const std::string& path) {
    MappedFile file;
    if (!MapWholeFile(PathOf(path), FILE_FLAG_SEQUENTIAL_SCAN, file)) return std::nullopt;
    return std::string(file.bytes.begin(), file.bytes.end());
}

static FileKind KindOf(void*, const std::string& path) {
    const DWORD attributes = GetFileAttributesW(PathOf(path).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return FileKind::kNone;
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? FileKind::kFolder : FileKind::kFile;
}

static bool MayOpenFolder(const std::string& folder, DWORD access) {
    static constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE opened = CreateFileW(PathOf(folder).c_str(), access, kShared, nullptr, OPEN_EXISTING,
                                      FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (opened == INVALID_HANDLE_VALUE) return false;
    CloseHandle(opened);
    return true;
}

static FolderUse UseOf(void*, const std::string& folder) {
    if (!MayOpenFolder(folder, FILE_LIST_DIRECTORY)) return FolderUse::kNothing;
    return MayOpenFolder(folder, FILE_ADD_FILE) ? FolderUse::kChange : FolderUse::kRead;
}

// ---- The output -----------------------------------------------------------------------------------------------------

static Written WriteAll(HANDLE file, std::string_view bytes) {
    static constexpr std::size_t kMost = 32768;  // an old console takes no more at once
    while (!bytes.empty()) {
        DWORD count = 0;
        if (!WriteFile(file, bytes.data(), static_cast<DWORD>(std::min(bytes.size(), kMost)), &count, nullptr)) {
            const DWORD error = GetLastError();
            return error == ERROR_BROKEN_PIPE || error == ERROR_NO_DATA ? Written::kClosed : Written::kFailed;
        }
        bytes.remove_prefix(count);
    }
    return Written::kAll;
}

static Written Write(void* device, Stream stream, std::string_view bytes) {
    if (stream == Stream::kErrors) return WriteAll(GetStdHandle(STD_ERROR_HANDLE), bytes);
    std::FILE* const pager = static_cast<NativeDevice*>(device)->pager;
    if (pager == nullptr) return WriteAll(GetStdHandle(STD_OUTPUT_HANDLE), bytes);
    return std::fwrite(bytes.data(), 1, bytes.size(), pager) == bytes.size() ? Written::kAll : Written::kClosed;
}

static bool HasProgram(const std::wstring& name) {
    for (const wchar_t* ending : {L".exe", L".com", L".bat", L".cmd"})
        if (SearchPathW(nullptr, name.c_str(), ending, 0, nullptr, nullptr) > 0) return true;
    return false;
}

// False only for a name of which it is certain; the system's shell reads anything else in its own way.
static bool MayBeCommand(const std::string& command) {
    const std::string name = command.substr(0, command.find(' '));
    const bool isPlain = std::ranges::all_of(name, [](char c) {
        return IsLetterOrDigit(c) || std::string_view("\\/:._+-").find(c) != std::string_view::npos;
    });
    return !isPlain || HasProgram(WideOfUtf8(name));
}

// Only a pager that the user names: `more` of the system does not know UTF-8. One that does not exist would lose the
// text.
static void StartPager(void* device) {
    auto& native = *static_cast<NativeDevice*>(device);
    const std::string pager = Variable(device, "PAGER").value_or("");
    if (native.pager == nullptr && !pager.empty() && MayBeCommand(pager))
        native.pager = _wpopen(WideOfUtf8(pager).c_str(), L"wb");
}

static Day Today(void*) {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return {now.wYear, now.wMonth, now.wDay};
}

// ---- Notes and files to write ---------------------------------------------------------------------------------------

static bool WriteFileAt(void*, const std::string& path, std::string_view bytes) {
    ReplacingFile replacing = BeginReplacing(PathOf(path));
    if (!replacing.file) return false;
    const bool isWhole = WriteAll(replacing.file.get(), bytes) == Written::kAll;
    return EndReplacing(replacing, isWhole);
}

static const NoteFiles* NoteFilesOf(void* device, const std::string& folder) {
    auto& native = *static_cast<NativeDevice*>(device);
    std::wstring path = PathOf(folder);
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) return nullptr;
    if (!path.ends_with(L'\\')) path += L'\\';
    native.folders.push_back(std::move(path));
    native.noteFiles.push_back(NoteFilesIn(native.folders.back()));
    return &native.noteFiles.back();
}

static NoteTime Now(void*) {
    return NoteTimeNow();
}

// ---- An editor ------------------------------------------------------------------------------------------------------

static std::string EditorOf(void* device) {
    for (const char* name : {"VISUAL", "EDITOR"})
        if (std::string editor = Variable(device, name).value_or(""); !editor.empty()) return editor;
    return "notepad";
}

// In a folder of its own in the user's one for temporary files; without a slash at its end.
static std::wstring NewDraftFolder() {
    static constexpr unsigned kTries = 1000;
    std::wstring temporary(MAX_PATH + 1, L'\0');
    temporary.resize(GetTempPathW(MAX_PATH + 1, temporary.data()));
    for (unsigned number = 0; number < kTries; ++number) {
        std::wstring folder =
            temporary + L"vw-" + std::to_wstring(GetCurrentProcessId()) + L'-' + std::to_wstring(number);
        if (CreateDirectoryW(folder.c_str(), nullptr)) return folder;
        if (GetLastError() != ERROR_ALREADY_EXISTS) break;
    }
    return L"";
}

static std::string MakeDraft(void* device, std::string_view bytes) {
    const std::wstring folder = NewDraftFolder();
    std::string path = Utf8OfWide(folder + L"\\note.txt");
    if (!folder.empty() && WriteFileAt(device, path, bytes)) return path;
    if (!folder.empty()) RemoveDirectoryW(folder.c_str());
    return "";
}

// The quotes around the whole are what the system's shell takes away.
static bool Edit(void* device, const std::string& path) {
    return _wsystem(WideOfUtf8("\"" + EditorOf(device) + " \"" + path + "\"\"").c_str()) == 0;
}

static void RemoveDraft(void*, const std::string& path) {
    const std::wstring file = WideOfUtf8(path);
    DeleteFileW(file.c_str());
    RemoveDirectoryW(file.substr(0, file.rfind(L'\\')).c_str());
}

// ---- The console ----------------------------------------------------------------------------------------------------

static HANDLE Output() {
    return GetStdHandle(STD_OUTPUT_HANDLE);
}

// Makes the console show UTF-8 and colours until the end. False if it knows no colours.
static bool PrepareConsole(NativeDevice& device) {
    static constexpr DWORD kSequences = 0x0004;  // ENABLE_VIRTUAL_TERMINAL_PROCESSING, of Windows 10 and later
    device.codePage = GetConsoleOutputCP();
    SetConsoleOutputCP(CP_UTF8);
    device.isConsole = GetConsoleMode(Output(), &device.outputMode) != 0;
    return device.isConsole && SetConsoleMode(Output(), device.outputMode | kSequences);
}

void EndSurroundings(Surroundings& surroundings) {
    auto& device = *static_cast<NativeDevice*>(surroundings.device);
    if (device.pager != nullptr) _pclose(device.pager);
    if (device.isConsole) SetConsoleMode(Output(), device.outputMode);
    if (device.codePage != 0) SetConsoleOutputCP(device.codePage);
    device = {};
}

static int Columns() {
    CONSOLE_SCREEN_BUFFER_INFO info{};
    return GetConsoleScreenBufferInfo(Output(), &info) ? info.srWindow.Right - info.srWindow.Left + 1 : 80;
}

// ---- The surroundings -----------------------------------------------------------------------------------------------

static std::string Utf8Folder(const std::wstring& folder) {
    return Utf8OfWide(WithoutLongPrefix(folder));
}

// As the window chooses it, but without making one: the current folder if it has note sets or a text, the user's own
// for an installed copy, otherwise the program's.
static std::string UsualWorkingFolder() {
    const bool isInstalled = IsThere(PathIn(ProgramFolder(), std::wstring(L"installed.txt")));
    for (const char* marker : {"*.nmi", "_avtext.dat"})
        if (!isInstalled && !FilesIn(StartFolder(), marker).empty()) return Utf8Folder(StartFolder());
    if (!isInstalled) return Utf8Folder(ProgramFolder());
    return Variable(nullptr, "APPDATA").value_or(".") + "/Versewell";
}

Surroundings NativeSurroundings() {
    NativeDevice& device = TheDevice();
    const bool showsColors = PrepareConsole(device);
    const std::string program = Utf8Folder(ProgramFolder());
    return {
        .device = &device,
        .variable = Variable,
        .list = List,
        .readFile = ReadFile,
        .kindOf = KindOf,
        .useOf = UseOf,
        .map = Map,
        .writeFile = WriteFileAt,
        .noteFiles = NoteFilesOf,
        .now = Now,
        .makeDraft = MakeDraft,
        .edit = Edit,
        .removeDraft = RemoveDraft,
        .today = Today,
        .write = Write,
        .startPager = StartPager,
        .isTerminal = device.isConsole,
        .showsColors = showsColors,
        .columns = Columns(),
        .draftsAreOfWindows = true,
        .codePage = static_cast<int>(GetACP()),
        .textFolders = {program, program + "../../data"},  // the second one is that of a build
        .workingFolder = UsualWorkingFolder(),
    };
}

std::vector<std::string> NativeArguments(int, char**) {
    int count = 0;
    wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 1; words != nullptr && i < count; ++i) arguments.push_back(Utf8OfWide(words[i]));
    LocalFree(words);
    return arguments;
}
