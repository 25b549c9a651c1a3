// Menus, scroll bars, the message queue and file operations, by means of the probe.

#include <thread>

#include "tests/driver/driver.h"
#include "tests/driver/probe.h"
#include "tests/driver/remote_memory.h"

// False when the program no longer answers, or does not yet: a dialog may come before the frame. Both have the memory,
// because Wine stops a program to read or write its memory from outside, and a program that is stopped while it tells
// Wine's server more than 64 KB ends with a "partial write".
static bool TryProbe(const Program& program, Probe& probe) {
    if (!program.probeView) return false;
    static const UINT probeMessage = RegisterWindowMessageA(kProbeMessageName);
    constexpr UINT kLongestAnswer = 60000;  // a long search may run before the answer
    DWORD_PTR ignored = 0;
    Probe& shared = *static_cast<Probe*>(program.probeView.get());
    shared = probe;
    const bool wasSent =
        SendMessageTimeoutA(program.frame, probeMessage, kProbeMark, reinterpret_cast<LPARAM>(program.probeMemory),
                            SMTO_NORMAL, kLongestAnswer, &ignored) != 0;
    probe = shared;
    return wasSent && probe.answered != 0;
}

Probe AskProbe(const Program& program, Probe probe) {
    if (!TryProbe(program, probe)) Fail(&program, "the program cannot be looked into");
    return probe;
}

static std::filesystem::path ProbeLibrary() {
    char file[MAX_PATH];
    GetModuleFileNameA(nullptr, file, sizeof file);
    return std::filesystem::path(file).parent_path() / "versewell_probe.dll";
}

static Probe Question(ProbeQuestion question, HMENU menu = nullptr, UINT item = 0) {
    Probe probe;
    probe.question = question;
    probe.menu = menu;
    probe.item = item;
    return probe;
}

// In the memory of this process and in that of the program.
static void ShareProbeMemory(Program& program) {
    using MapView = LONG(WINAPI*)(HANDLE section, HANDLE process, void** address, ULONG_PTR zeroBits, SIZE_T committed,
                                  LARGE_INTEGER* offset, SIZE_T* size, ULONG inheritance, ULONG kind, ULONG protection);
    static const auto mapView = reinterpret_cast<MapView>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("ntdll.dll"), "NtMapViewOfSection")));
    constexpr ULONG kNotInherited = 2;
    const UniqueHandle section(
        CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, sizeof(Probe), nullptr));
    SIZE_T size = sizeof(Probe);
    program.probeMemory = nullptr;
    program.probeView.reset(MapViewOfFile(section.get(), FILE_MAP_ALL_ACCESS, 0, 0, sizeof(Probe)));
    mapView(section.get(), program.process.get(), &program.probeMemory, 0, 0, nullptr, &size, kNotInherited, 0,
            PAGE_READWRITE);
}

void HookProbe(Program& program) {
    static const HMODULE library = LoadLibraryA(ProbeLibrary().string().c_str());
    if (library == nullptr) Fail(&program, "cannot load " + ProbeLibrary().string());
    const FARPROC watch = GetProcAddress(library, "WatchSentMessages");
    program.probe.reset(SetWindowsHookExA(WH_CALLWNDPROC, reinterpret_cast<HOOKPROC>(reinterpret_cast<void*>(watch)),
                                          library, GetWindowThreadProcessId(program.frame, nullptr)));
    ShareProbeMemory(program);
    if (!program.probe || !program.probeView || program.probeMemory == nullptr)
        Fail(&program, "cannot look into the program, error " + std::to_string(GetLastError()));
}

// The program must be idle twice in a row, because it may post a message or invalidate a window after the first check.
void Settle(const Program& program) {
    const auto deadline = std::chrono::steady_clock::now() + kPatience;
    for (int idle = 0; idle < 2;) {
        Probe probe = Question(ProbeQuestion::QueueState);
        const bool hasAnswer = TryProbe(program, probe);
        if (!hasAnswer && !IsWindow(program.frame)) return;  // the program has exited
        if (std::chrono::steady_clock::now() > deadline) Fail(&program, "the program never comes to rest");
        idle = hasAnswer && probe.result == 0 ? idle + 1 : 0;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

static HMENU FrameMenu(const Program& program) {
    Probe probe = Question(ProbeQuestion::MenuBar);
    probe.window = program.frame;
    return AskProbe(program, probe).menu;
}

static Probe ItemOfCommand(const Program& program, int command) {
    Settle(program);
    return AskProbe(program, Question(ProbeQuestion::MenuItemById, FrameMenu(program), static_cast<UINT>(command)));
}

UINT MenuState(const Program& program, int command) {
    return ItemOfCommand(program, command).result;
}
std::string MenuText(const Program& program, int command) {
    return ItemOfCommand(program, command).text;
}

static UINT StateThatExists(const Program& program, int command) {
    const UINT state = MenuState(program, command);
    if (state == 0xFFFFFFFF) Fail(&program, "no menu item has the command " + std::to_string(command));
    return state;
}

bool IsGreyed(const Program& program, int command) {
    return (StateThatExists(program, command) & (MF_GRAYED | MF_DISABLED)) != 0;
}

bool IsTicked(const Program& program, int command) {
    return (StateThatExists(program, command) & MF_CHECKED) != 0;
}

static std::vector<MenuLine> LinesOf(const Program& program, HMENU menu) {
    std::vector<MenuLine> lines;
    const UINT count = AskProbe(program, Question(ProbeQuestion::MenuCount, menu)).result;
    for (UINT place = 0; place < count; ++place) {
        const Probe item = AskProbe(program, Question(ProbeQuestion::MenuItemByPlace, menu, place));
        lines.push_back({static_cast<int>(item.id), item.text, item.result});
    }
    return lines;
}

std::vector<std::string> MenuBar(const Program& program) {
    std::vector<std::string> titles;
    for (const MenuLine& line : LinesOf(program, FrameMenu(program))) titles.push_back(line.text);
    return titles;
}

std::vector<MenuLine> MenuLines(const Program& program, int position) {
    const Probe popup =
        AskProbe(program, Question(ProbeQuestion::SubMenu, FrameMenu(program), static_cast<UINT>(position)));
    return LinesOf(program, popup.menu);
}

static HMENU OpenMenu(const Program& program) {
    constexpr UINT kGetMenuOfPopup = 0x01E1;  // MN_GETHMENU
    HWND popup = nullptr;
    WaitUntil(program, "a menu to open", [&] {
        for (const HWND window : TopLevelWindows(program))
            if (ClassOf(window) == "#32768") popup = window;
        return popup != nullptr;
    });
    return reinterpret_cast<HMENU>(Ask(program, popup, kGetMenuOfPopup));
}

std::vector<MenuLine> OpenMenuLines(const Program& program) {
    return LinesOf(program, OpenMenu(program));
}

std::vector<MenuLine> OpenMenuLines(const Program& program, int place) {
    const Probe submenu =
        AskProbe(program, Question(ProbeQuestion::SubMenu, OpenMenu(program), static_cast<UINT>(place)));
    return LinesOf(program, submenu.menu);
}

ScrollState VerticalScroll(const Program& program, HWND window) {
    Settle(program);
    Probe probe = Question(ProbeQuestion::VerticalScroll);
    probe.window = window;
    const SCROLLINFO info = AskProbe(program, probe).scroll;
    return {info.nMin, info.nMax, static_cast<int>(info.nPage), info.nPos};
}

SIZE SizeOfText(const Program& program, HWND window, std::string_view text, int width, UINT format) {
    Probe probe = Question(ProbeQuestion::SizeOfText, nullptr, format);
    probe.window = window;
    probe.size.cx = width;
    if (text.size() >= sizeof probe.text) Fail(&program, "too long to be measured: " + std::string(text));
    text.copy(probe.text, text.size());
    return AskProbe(program, probe).size;
}

void EndAtFileOperation(const Program& program, unsigned last) {
    AskProbe(program, Question(ProbeQuestion::EndAtFileOperation, nullptr, last));
}

void FillDiskAtFileOperation(const Program& program, unsigned first) {
    AskProbe(program, Question(ProbeQuestion::FillDisk, nullptr, first));
}

void TypeWithAltGr(const Program& program, char digit, wchar_t character) {
    Probe probe = Question(ProbeQuestion::TypeWithAltGr, nullptr, static_cast<UINT>(digit));
    probe.id = character;
    AskProbe(program, probe);
}
