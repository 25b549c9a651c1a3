// The help viewer is looked up on every call, because the user may start or install one in the meantime:
//
//   WinHelp            if the system has it; controlled with the commands and macros of its interface
//   Wine's WinHelp     does not accept macros from other programs, but opens a topic given on its command line; so each
//                      page is shown by a viewer of its own, and the one before is ended first
//   the browser        otherwise, with the topic's page
//
// A key that is held down asks once.
//
// The first two know the system's code page only, and paths of at most MAX_PATH letters. Other paths are passed with
// short names of folders, and if there are none, the page is opened in the browser.
#include "win32/help_viewer.h"

#include <shellapi.h>

#include <optional>
#include <string>

#include "win32/controls.h"
#include "win32/files.h"
#include "win32/handles.h"
#include "win32/held_keys.h"
#include "win32/wine.h"

namespace {

struct HelpPage {
    const char* file;   // the help file's name
    const char* topic;  // null for the contents
};

}  // namespace

// Of the help that lies beside the program, whatever the current folder has of that name: help files can start
// programs. Only a program without its help is content with another one.
static std::wstring HelpPath(const std::string& name) {
    const std::wstring own = PathIn(ProgramFolder(), name);
    return IsThere(own) ? own : ProgramFilePath(name);
}

// Like all procedures here that open something, returns whether it succeeded.
static bool OpenWithShell(HWND owner, const std::wstring& file) {
    const HINSTANCE result = ShellExecuteW(owner, L"open", file.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
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

// ---- Wine's viewer
// ----------------------------------------------------------------------------------------------------

// The viewer that this program has started under Wine. It may still be starting and have no window yet, so that it
// could not be found or be told anything.
static OwnedProcess startedViewer;

static bool IsOver(HANDLE process, DWORD patience) {
    return WaitForSingleObject(process, patience) != WAIT_TIMEOUT;
}

// A viewer has nothing that could be lost, so one that does not answer is simply ended.
static void EndViewerOfWine(HWND frame, const std::string& file) {
    static constexpr DWORD kPatience = 1000;  // milliseconds
    const bool isTold = RunningViewer() != nullptr;
    if (isTold) WinHelpA(frame, file.c_str(), HELP_QUIT, 0);
    if (!startedViewer) return;
    if (!IsOver(startedViewer.get(), isTold ? kPatience : 0)) TerminateProcess(startedViewer.get(), 0);
    startedViewer.reset();
}

static bool StartViewerOfWine(HWND frame, const std::wstring& viewer, const std::string& file, const char* topic) {
    EndViewerOfWine(frame, file);
    const std::string place = topic != nullptr ? std::string("-i ") + topic + " " : "";
    const std::wstring arguments = Wide(place + "\"" + file + "\"");
    SHELLEXECUTEINFOW start{};
    start.cbSize = sizeof start;
    start.fMask = SEE_MASK_NOCLOSEPROCESS | SEE_MASK_FLAG_NO_UI;
    start.hwnd = frame;
    start.lpFile = viewer.c_str();
    start.lpParameters = arguments.c_str();
    start.nShow = SW_SHOWNORMAL;
    if (!ShellExecuteExW(&start)) return false;
    startedViewer.reset(start.hProcess);
    return true;
}

// ---- Any viewer
// -------------------------------------------------------------------------------------------------------

static bool SendToViewer(HWND frame, const std::string& file, const HelpPage& page) {
    if (page.topic == nullptr) return WinHelpA(frame, file.c_str(), HELP_CONTENTS, 0);
    const std::string macro = std::string("JumpID(\"") + page.file + "\",\"" + page.topic + "\")";
    return WinHelpA(frame, file.c_str(), HELP_COMMAND, reinterpret_cast<ULONG_PTR>(macro.c_str()));
}

static bool ShowInViewer(HWND frame, const HelpPage& page) {
    const std::wstring path = HelpPath(page.file);
    const std::optional<std::string> file = IsThere(path) ? PathInCodePage(path) : std::nullopt;
    if (!file) return false;
    const std::wstring viewer = InstalledViewer();
    const HWND running = RunningViewer();
    if (viewer.empty() && running == nullptr) return false;
    const bool isOther = running != nullptr && !BelongsToFile(running, viewer);
    if (IsWine() && !isOther) return StartViewerOfWine(frame, viewer, *file, page.topic);
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
    const std::wstring path = HelpPath("help\\" + name + ".html");
    return IsThere(path) && OpenWithShell(frame, ShellPath(path));
}

static void Open(HWND owner, const HelpPage& page) {
    if (IsHeldKey()) return;
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
    const std::wstring path = HelpPath(name);
    const std::optional<std::string> file = IsThere(path) ? PathInCodePage(path) : std::nullopt;
    if (startedViewer)
        EndViewerOfWine(frame, file.value_or(name));
    else if (file)
        WinHelpA(frame, file->c_str(), HELP_QUIT, 0);
}
