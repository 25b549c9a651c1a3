#include "tests/windows/help_viewers.h"

#include <algorithm>
#include <cstring>
#include <fstream>
#include <mutex>
#include <ostream>
#include <thread>
#include <utility>
#include <vector>

#include <tlhelp32.h>

namespace fs = std::filesystem;

ScratchFolder FolderWithHelp() {
    ScratchFolder folder = FolderWithScripture();
    fs::copy(fs::path(Surroundings().help), folder.path, fs::copy_options::recursive);
    return folder;
}

void PrintTo(const HelpRequest& request, std::ostream* out) {
    *out << request.command << " " << request.file << " " << request.macro;
}

// ---- A viewer that records requests ---------------------------------------------------------------------------------

// What the system sends to a viewer with WM_COPYDATA. Offsets are from the start of the structure; 0 means absent.
struct ViewerMessage {
    WORD size;
    WORD command;
    LONG data;
    LONG reserved;
    WORD fileAt;
    WORD macroAt;
};

struct ListeningViewer {
    std::jthread thread;
    std::mutex mutex;
    std::vector<HelpRequest> requests;
    HWND window = nullptr;
};

static HelpRequest RequestOf(const COPYDATASTRUCT& sent) {
    const auto* bytes = static_cast<const char*>(sent.lpData);
    ViewerMessage message{};
    std::memcpy(&message, bytes, std::min(sizeof message, static_cast<size_t>(sent.cbData)));
    const std::string path = message.fileAt != 0 ? bytes + message.fileAt : "";
    return {message.command, path.substr(path.find_last_of('\\') + 1),
            message.macroAt != 0 ? bytes + message.macroAt : ""};
}

static LRESULT CALLBACK ListeningProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_DESTROY) PostQuitMessage(0);
    if (message != WM_COPYDATA) return DefWindowProcA(window, message, wParam, lParam);
    auto* viewer = reinterpret_cast<ListeningViewer*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    const std::lock_guard lock(viewer->mutex);
    viewer->requests.push_back(RequestOf(*reinterpret_cast<const COPYDATASTRUCT*>(lParam)));
    return TRUE;
}

static HWND MakeListeningWindow(ListeningViewer& viewer) {
    WNDCLASSA type{};
    type.lpfnWndProc = ListeningProcedure;
    type.hInstance = GetModuleHandleA(nullptr);
    type.lpszClassName = "MS_WINHELP";
    RegisterClassA(&type);
    const HWND window =
        CreateWindowA("MS_WINHELP", "", WS_OVERLAPPED, 0, 0, 1, 1, nullptr, nullptr, type.hInstance, nullptr);
    SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&viewer));
    return window;
}

static void Listen(ListeningViewer& viewer, HANDLE ready) {
    viewer.window = MakeListeningWindow(viewer);
    SetEvent(ready);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) DispatchMessageA(&message);
}

UniqueListeningViewer ListenAsViewer() {
    UniqueListeningViewer viewer(new ListeningViewer);
    const UniqueHandle ready(CreateEventA(nullptr, TRUE, FALSE, nullptr));
    viewer->thread = std::jthread([&listening = *viewer, event = ready.get()] { Listen(listening, event); });
    WaitForSingleObject(ready.get(), INFINITE);
    return viewer;
}

void EndListening::operator()(ListeningViewer* viewer) const {
    PostMessageA(viewer->window, WM_CLOSE, 0, 0);
    delete viewer;
}

std::vector<HelpRequest> TakeRequests(ListeningViewer& viewer) {
    const std::lock_guard lock(viewer.mutex);
    return std::exchange(viewer.requests, {});
}

// ---- The system's viewer --------------------------------------------------------------------------------------------

static fs::path InstalledViewer() {
    return "C:\\windows\\system32\\winhlp32.exe";
}

static fs::path PutAside(const fs::path& file) {
    return file.string() + ".aside";
}

static std::vector<DWORD> RunningViewers() {
    const UniqueHandle all(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    PROCESSENTRY32 entry{};
    entry.dwSize = sizeof entry;
    std::vector<DWORD> processes;
    for (BOOL more = Process32First(all.get(), &entry); more; more = Process32Next(all.get(), &entry))
        if (lstrcmpiA(entry.szExeFile, "winhlp32.exe") == 0) processes.push_back(entry.th32ProcessID);
    return processes;
}

// A viewer that was asked to close while it was starting stays open, and would answer the next program.
static void EndViewers() {
    static constexpr DWORD kPatience = 5000;  // milliseconds
    for (const DWORD id : RunningViewers()) {
        const UniqueHandle viewer(OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, id));
        TerminateProcess(viewer.get(), 0);
        WaitForSingleObject(viewer.get(), kPatience);
    }
}

WithoutViewer::WithoutViewer() {
    EndViewers();
    fs::rename(InstalledViewer(), PutAside(InstalledViewer()));
    std::ofstream(InstalledViewer()) << std::string(12 * 1024, 'x');
}

WithoutViewer::~WithoutViewer() {
    std::error_code ignored;
    fs::remove(InstalledViewer(), ignored);
    fs::rename(PutAside(InstalledViewer()), InstalledViewer(), ignored);
}

HWND ViewerWindow() {
    return FindWindowA("MS_WINHELP", nullptr);
}

int ViewerCount() {
    return static_cast<int>(RunningViewers().size());
}

static BOOL CALLBACK AddText(HWND window, LPARAM all) {
    *reinterpret_cast<std::string*>(all) += TextOf(window);
    return TRUE;
}

std::string ShownInViewer(const Program& program) {
    std::string text;
    WaitUntil(program, "the viewer to show something", [&] {
        text.clear();
        for (HWND window = nullptr; (window = FindWindowExA(nullptr, window, "MS_WINDOC", nullptr)) != nullptr;)
            EnumChildWindows(window, AddText, reinterpret_cast<LPARAM>(&text));
        EnumChildWindows(ViewerWindow(), AddText, reinterpret_cast<LPARAM>(&text));
        return text.size() > 50;
    });
    return text;
}

// ---- The browser ----------------------------------------------------------------------------------------------------

static constexpr char kPageKey[] = ".html";
static constexpr char kBrowserKey[] = "VersewellTestPage";

static void SetDefault(const std::string& key, const std::string& value) {
    RegSetKeyValueA(HKEY_CLASSES_ROOT, key.c_str(), nullptr, REG_SZ, value.c_str(),
                    static_cast<DWORD>(value.size() + 1));
}

WritingBrowser::WritingBrowser(const ScratchFolder& folder) : file((folder.path / "pages.txt").string()) {
    SetDefault(kPageKey, "VersewellTestPage");
    SetDefault(std::string(kBrowserKey) + "\\shell\\open\\command", "cmd.exe /c echo %1>>\"" + file + "\"");
}

WritingBrowser::~WritingBrowser() {
    RegDeleteTreeA(HKEY_CLASSES_ROOT, kPageKey);
    RegDeleteTreeA(HKEY_CLASSES_ROOT, kBrowserKey);
}

std::string NextPage(const Program& program, const WritingBrowser& browser) {
    std::string line;
    WaitUntil(program, "a page in the browser", [&] {
        std::ifstream(browser.file) >> line;
        return line.ends_with(".html");
    });
    std::error_code ignored;
    fs::remove(browser.file, ignored);
    const std::string place = program.folder.path.string() + "\\";
    return line.starts_with(place) ? line.substr(place.size()) : line;
}
