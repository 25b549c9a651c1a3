// The help viewer is looked up on every call, because the user may start or install one in the meantime:
//
//   WinHelp            if the system has it; controlled with the commands and macros of its interface
//   Wine's WinHelp     does not accept macros from other programs, but opens a topic given on its command line
//   the browser        otherwise, with the topic's page
//
// The first two know the system's code page only, and paths of at most MAX_PATH letters. Other paths are passed with
// short names of folders, and if there are none, the page is opened in the browser.
#include "win32/help_viewer.h"

#include <shellapi.h>

#include <optional>
#include <string>

#include "win32/controls.h"
#include "win32/files.h"

namespace {

struct HelpPage {
    const char* file;   // the help file's name
    const char* topic;  // null for the contents
};

}  // namespace

// Like all procedures here that open something, returns whether it succeeded.
static bool OpenWithShell(HWND owner, const std::wstring& file, const std::string& arguments) {
    const HINSTANCE result =
        ShellExecuteW(owner, L"open", file.c_str(), Wide(arguments).c_str(), nullptr, SW_SHOWNORMAL);
    return reinterpret_cast<INT_PTR>(result) > 32;
}

// ---- The viewer of help files ---------------------------------------------------------------------------------------

// Since version 6, Windows has only a small program of about ten kilobytes under the viewer's name, which reports that
// there is no viewer; the real viewer has hundreds.
static constexpr DWORD kSmallestViewer = 64 * 1024;

static bool IsViewer(const std::wstring& path) {
    WIN32_FILE_ATTRIBUTE_DATA file{};
    return GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &file) &&
           (file.nFileSizeHigh != 0 || file.nFileSizeLow >= kSmallestViewer);
}

// Path of the installed viewer; empty if there is none.
static std::wstring InstalledViewer() {
    wchar_t folder[MAX_PATH] = L"";
    GetWindowsDirectoryW(folder, MAX_PATH);
    for (const char* name : {"winhlp32.exe", "system32\\winhlp32.exe"})
        if (const std::wstring path = PathIn(folder, Wide(name)); IsViewer(path)) return path;
    return L"";
}

// The viewer's window class is part of its interface: the system uses it to find a running viewer.
static HWND RunningViewer() {
    return FindWindowA("MS_WINHELP", nullptr);
}

static bool IsWine() {
    return GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") != nullptr;
}

static bool BelongsToFile(HWND window, const std::wstring& path) {
    DWORD id = 0;
    GetWindowThreadProcessId(window, &id);
    const HANDLE process = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, id);
    if (process == nullptr) return false;
    wchar_t image[MAX_PATH] = L"";  // the viewer is in the Windows folder, whose path is short
    DWORD length = MAX_PATH;
    const bool known = QueryFullProcessImageNameW(process, 0, image, &length);
    CloseHandle(process);
    return known && lstrcmpiW(image, path.c_str()) == 0;
}

static bool OpenTopicInWine(HWND frame, const std::wstring& viewer, const std::string& file, const char* topic) {
    if (RunningViewer() != nullptr) WinHelpA(frame, file.c_str(), HELP_QUIT, 0);
    return OpenWithShell(frame, viewer, std::string("-i ") + topic + " \"" + file + "\"");
}

static bool SendToViewer(HWND frame, const std::string& file, const HelpPage& page) {
    if (page.topic == nullptr) return WinHelpA(frame, file.c_str(), HELP_CONTENTS, 0);
    const std::string macro = std::string("JumpID(\"") + page.file + "\",\"" + page.topic + "\")";
    return WinHelpA(frame, file.c_str(), HELP_COMMAND, reinterpret_cast<ULONG_PTR>(macro.c_str()));
}

static bool ShowInViewer(HWND frame, const HelpPage& page) {
    const std::wstring path = ProgramFilePath(page.file);
    const std::optional<std::string> file = IsThere(path) ? PathInCodePage(path) : std::nullopt;
    if (!file) return false;
    const std::wstring viewer = InstalledViewer();
    const HWND running = RunningViewer();
    if (viewer.empty() && running == nullptr) return false;
    const bool isOther = running != nullptr && !BelongsToFile(running, viewer);
    if (page.topic != nullptr && IsWine() && !isOther) return OpenTopicInWine(frame, viewer, *file, page.topic);
    return SendToViewer(frame, *file, page);
}

// ---- The browser ----------------------------------------------------------------------------------------------------

// The shell accepts any letters, but no long paths.
static std::wstring ShellPath(const std::wstring& path) {
    if (path.size() < MAX_PATH) return path;
    const std::optional<std::string> shorter = PathInCodePage(path);
    return shorter ? Wide(*shorter) : WithoutLongPrefix(path);
}

static bool ShowInBrowser(HWND frame, const HelpPage& page) {
    const std::string name = page.topic != nullptr ? page.topic : "index";
    const std::wstring path = ProgramFilePath("help\\" + name + ".html");
    return IsThere(path) && OpenWithShell(frame, ShellPath(path), "");
}

static void Open(HWND owner, const HelpPage& page) {
    const HWND frame = FrameOf(owner);
    if (ShowInViewer(frame, page) || ShowInBrowser(frame, page)) return;
    const std::string text = std::string("The help file \"") + page.file + "\" cannot be found.";
    MessageBoxA(owner, text.c_str(), "Help", MB_OK | MB_ICONINFORMATION);
}

void OpenHelpContents(HWND owner, const char* name) {
    Open(owner, {name, nullptr});
}

void OpenHelpTopic(HWND owner, const char* name, const char* topic) {
    Open(owner, {name, topic});
}

void CloseHelp(HWND frame, const char* name) {
    const std::wstring path = ProgramFilePath(name);
    const std::optional<std::string> file = IsThere(path) ? PathInCodePage(path) : std::nullopt;
    if (file) WinHelpA(frame, file->c_str(), HELP_QUIT, 0);
}
