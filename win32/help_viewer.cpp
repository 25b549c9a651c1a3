// Which viewer opens the help is found anew each time, since the user may start or install one meanwhile:
//
//   WinHelp            where the system has it: commands and macros go to it as its interface wants them.
//   Wine's WinHelp     takes no macro from another program, but opens a topic that it is started with.
//   the browser        everywhere else, with the topic's page.
#include "win32/help_viewer.h"

#include <shellapi.h>

#include <string>

#include "win32/controls.h"
#include "win32/files.h"

namespace {

struct HelpPage {
    const char* file;   // the help file's name
    const char* topic;  // none: the contents
};

}  // namespace

static bool IsThere(const std::string& path) {
    return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

// The procedures that open something give whether they could.
static bool OpenWithShell(HWND owner, const std::string& file, const std::string& arguments) {
    const HINSTANCE result = ShellExecuteA(owner, "open", file.c_str(), arguments.c_str(), nullptr, SW_SHOWNORMAL);
    return reinterpret_cast<INT_PTR>(result) > 32;
}

// ---- The viewer of help files ---------------------------------------------------------------------------------------

// Since version 6 Windows has under the viewer's name a program of some ten kilobytes which only says that there is no
// viewer; the viewer has hundreds.
static constexpr DWORD kSmallestViewer = 64 * 1024;

static bool IsViewer(const std::string& path) {
    WIN32_FILE_ATTRIBUTE_DATA file{};
    return GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &file) &&
           (file.nFileSizeHigh != 0 || file.nFileSizeLow >= kSmallestViewer);
}

// The installed viewer's path; empty when the system has none.
static std::string InstalledViewer() {
    char folder[MAX_PATH] = "";
    GetWindowsDirectoryA(folder, MAX_PATH);
    const std::string windows = folder;
    for (const char* place : {"\\winhlp32.exe", "\\system32\\winhlp32.exe"})
        if (IsViewer(windows + place)) return windows + place;
    return "";
}

// The class of its window is part of the viewer's interface: by it the system finds the one that runs.
static HWND RunningViewer() {
    return FindWindowA("MS_WINHELP", nullptr);
}

static bool IsWine() {
    return GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") != nullptr;
}

static bool BelongsToFile(HWND window, const std::string& path) {
    DWORD id = 0;
    GetWindowThreadProcessId(window, &id);
    const HANDLE process = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, id);
    if (process == nullptr) return false;
    char image[MAX_PATH] = "";
    DWORD length = MAX_PATH;
    const bool known = QueryFullProcessImageNameA(process, 0, image, &length);
    CloseHandle(process);
    return known && lstrcmpiA(image, path.c_str()) == 0;
}

static bool OpenTopicInWine(HWND frame, const std::string& viewer, const std::string& file, const char* topic) {
    if (RunningViewer() != nullptr) WinHelpA(frame, file.c_str(), HELP_QUIT, 0);
    return OpenWithShell(frame, viewer, std::string("-i ") + topic + " \"" + file + "\"");
}

static bool SendToViewer(HWND frame, const std::string& file, const HelpPage& page) {
    if (page.topic == nullptr) return WinHelpA(frame, file.c_str(), HELP_CONTENTS, 0);
    const std::string macro = std::string("JumpID(\"") + page.file + "\",\"" + page.topic + "\")";
    return WinHelpA(frame, file.c_str(), HELP_COMMAND, reinterpret_cast<ULONG_PTR>(macro.c_str()));
}

static bool ShowInViewer(HWND frame, const HelpPage& page) {
    const std::string file = ProgramFilePath(page.file);
    if (!IsThere(file)) return false;
    const std::string viewer = InstalledViewer();
    const HWND running = RunningViewer();
    if (viewer.empty() && running == nullptr) return false;
    const bool isOther = running != nullptr && !BelongsToFile(running, viewer);
    if (page.topic != nullptr && IsWine() && !isOther) return OpenTopicInWine(frame, viewer, file, page.topic);
    return SendToViewer(frame, file, page);
}

// ---- The browser ----------------------------------------------------------------------------------------------------

static bool ShowInBrowser(HWND frame, const HelpPage& page) {
    const std::string name = page.topic != nullptr ? page.topic : "index";
    const std::string path = ProgramFilePath("help\\" + name + ".html");
    return IsThere(path) && OpenWithShell(frame, path, "");
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
    const std::string path = ProgramFilePath(name);
    if (IsThere(path)) WinHelpA(frame, path.c_str(), HELP_QUIT, 0);
}
