// A user without a plan: random keys, mouse movements and commands on the real program. Whatever happens, the program
// must go on, end with code 0 and not need more and more memory, drawing objects or windows.
//
// With VERSEWELL_LONG a run goes on for five minutes, with VERSEWELL_MONKEY_SECONDS for so many seconds, otherwise for
// some hundred acts. The seed is printed; with VERSEWELL_MONKEY_SEED the same acts come again.

#include <windows.h>

#include <commctrl.h>

#include <psapi.h>
#include <winternl.h>

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <iostream>
#include <map>
#include <optional>
#include <random>

#include "resources/ids.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"

using Clock = std::chrono::steady_clock;

namespace {

struct Monkey {
    Program program;
    ScratchFolder folder;
    std::mt19937 random;
    std::vector<std::string> lastActs;  // for the report of a failure
};

}  // namespace

static int Below(Monkey& monkey, int limit) {
    return static_cast<int>(monkey.random() % static_cast<unsigned>(limit));
}

template <typename T, std::size_t size>
static const T& OneOf(Monkey& monkey, const T (&choices)[size]) {
    return choices[Below(monkey, static_cast<int>(size))];
}

static void Remember(Monkey& monkey, const std::string& act) {
    static constexpr std::size_t kRemembered = 40;
    monkey.lastActs.push_back(act);
    if (monkey.lastActs.size() > kRemembered) monkey.lastActs.erase(monkey.lastActs.begin());
}

// ---- The program and what is in front of it -------------------------------------------------------------------------

static void Start(Monkey& monkey) {
    monkey.program = {};
    monkey.program = LaunchProgram(monkey.folder);
    const Program& program = monkey.program;
    const auto end = Clock::now() + kPatience;
    while (program.frame == nullptr && Clock::now() < end) {
        // A damaged or left-over file is reported before the frame is shown.
        for (const HWND window : TopLevelWindows(program))
            if (ClassOf(window) == "#32770") PostMessageA(window, WM_COMMAND, IDOK, 0);
        if (FindWindowA("Versewell97", nullptr) != nullptr) break;
        Sleep(20);
    }
    WaitForFrame(monkey.program);
}

// The end of the program is part of the play, but only with code 0.
static bool HasEnded(Monkey& monkey) {
    if (IsRunning(monkey.program)) return false;
    EXPECT_EQ(WaitForExit(monkey.program), 0);
    return true;
}

// Another program that came to the front, such as a viewer of the help, is closed.
static void ComeToFront(Monkey& monkey) {
    DWORD processId = 0;
    const HWND front = GetForegroundWindow();
    GetWindowThreadProcessId(front, &processId);
    if (processId == monkey.program.processId) return;
    if (front != nullptr && front != GetDesktopWindow() && processId != GetCurrentProcessId()) {
        const UniqueHandle other(OpenProcess(PROCESS_TERMINATE, FALSE, processId));
        if (other) TerminateProcess(other.get(), 0);
    }
    SetForegroundWindow(GetLastActivePopup(monkey.program.frame));
}

static HWND ActiveWindow(const Monkey& monkey) {
    const HWND active = ActiveWindowOf(monkey.program);
    return active ? active : monkey.program.frame;
}

// The active window or one of its descendants.
static HWND SomeWindow(Monkey& monkey) {
    HWND window = ActiveWindow(monkey);
    for (int depth = 0; depth < 4 && Below(monkey, 4) != 0; ++depth) {
        const std::vector<HWND> children = ChildrenOf(window);
        if (children.empty()) break;
        const HWND child = children[static_cast<std::size_t>(Below(monkey, static_cast<int>(children.size())))];
        if (!IsShown(child)) break;
        window = child;
    }
    return window;
}

static POINT SomePoint(Monkey& monkey, HWND window) {
    const RECT room = ClientRectOf(window);
    return {Below(monkey, std::max(1, static_cast<int>(room.right))),
            Below(monkey, std::max(1, static_cast<int>(room.bottom)))};
}

// Ends everything that is open: dialogs, menus, the editor.
static void ComeToRest(Monkey& monkey) {
    const auto isAtRest = [&] {
        return IsWindowEnabled(monkey.program.frame) && !IsInMenu(monkey.program) &&
               !IsShown(NoteEditOf(monkey.program));
    };
    for (int tries = 0; tries < 60 && !isAtRest(); ++tries) {
        ComeToFront(monkey);
        if (HasDialog(monkey.program)) {
            const HWND dialog = ActiveWindow(monkey);
            const bool asks = GetDlgItem(dialog, IDNO) != nullptr;
            PostMessageA(dialog, WM_COMMAND, static_cast<WPARAM>(asks ? IDNO : IDCANCEL), 0);
            Settle(monkey.program);
        } else if (IsShown(NoteEditOf(monkey.program))) {
            PostMessageA(NoteEditorOf(monkey.program), WM_COMMAND, IDC_NOTE_CANCEL, 0);
        }
        Press(monkey.program, "Esc");
    }
    if (!isAtRest()) Fail(&monkey.program, "something stays open");
}

// ---- Acts -----------------------------------------------------------------------------------------------------------

static constexpr const char* kKeys[] = {"Enter",       "Tab",         "Shift+Tab",    "Space",        "Esc",
                                        "Left",        "Right",       "Up",           "Down",         "PgUp",
                                        "PgDn",        "Home",        "End",          "Delete",       "Back",
                                        "Insert",      "Ctrl+Home",   "Ctrl+End",     "Ctrl+PgUp",    "Ctrl+PgDn",
                                        "Ctrl+Left",   "Ctrl+Right",  "Shift+Left",   "Shift+Right",  "Shift+Up",
                                        "Shift+Down",  "Shift+End",   "Shift+Home",   "Ctrl+a",       "Ctrl+c",
                                        "Ctrl+x",      "Ctrl+v",      "Ctrl+z",       "Ctrl+s",       "Ctrl+1",
                                        "Ctrl+0",      "Ctrl+Alt+1",  "Ctrl+Alt+5",   "F2",           "F3",
                                        "F4",          "F5",          "F6",           "F7",           "F8",
                                        "F9",          "F10",         "F11",          "F12",          "Shift+F10",
                                        "Menu",        "Alt+1",       "Alt+2",        "Alt+e",        "Alt+g",
                                        "Alt+l",       "Alt+n",       "Alt+p",        "Alt+t",        "Alt+w",
                                        "Alt+Up",      "Alt+Down",    "Alt+Left",     "Alt+Right",    "Ctrl+Tab",
                                        "Shift+Enter", "Ctrl+Enter",  "Shift+Delete", "Shift+Insert", "Ctrl+Insert",
                                        "Ctrl+Back",   "Ctrl+Delete", "Alt+f",        "Alt+v",        "/",
                                        "Shift+F2",    "Shift+F7"};

static constexpr const char* kTexts[] = {
    "grace", "the",          "in the beginning", "John 3:16",     "Ge 1:1 - Ex 2:3", "# Ge 1:1-5", "a",
    "99",    "\xE9\xDF\xB6", "Re 22:21",         "no such place", "x y z",           "0",          "My"};

static constexpr int kCommands[] = {
    101, 105, 106, 108, 109, 110, 111, 112, 113, 114, 116, 117, 118,  119,  120,  121,  122,   123,  125, 126, 127,
    128, 129, 130, 131, 132, 133, 134, 135, 137, 138, 139, 143, 149,  153,  159,  160,  161,   162,  163, 164, 165,
    169, 170, 171, 172, 173, 174, 175, 176, 177, 178, 179, 180, 181,  182,  183,  184,  187,   188,  189, 190, 191,
    192, 300, 301, 302, 900, 901, 902, 903, 904, 905, 906, 907, 1001, 1043, 1066, 2000, 20000, 33101};

// Each command once. What the system makes once and keeps is not growth, and a program that has just started has little
// of it: Wine keeps the last 64 device contexts of windows, each with a region and another object, and for every icon
// and mouse pointer of the system that was ever shown three bitmaps; the first dialog for files or fonts leaves
// pictures, pens and device contexts. Together that is nearly two thirds of all drawing objects.
static void TryEveryCommand(Monkey& monkey) {
    ComeToRest(monkey);
    Press(monkey.program, "Alt+w");
    Type(monkey.program, "grace");
    Press(monkey.program, "Enter");  // many commands need a list
    ComeToRest(monkey);
    for (const int command : kCommands) {
        Remember(monkey, "command " + std::to_string(command));
        Command(monkey.program, command);
        ComeToRest(monkey);
    }
}

static void PressKey(Monkey& monkey) {
    const std::string keys = OneOf(monkey, kKeys);
    Remember(monkey, "press " + keys);
    Press(monkey.program, keys);
}

static void TypeText(Monkey& monkey) {
    const std::string text = OneOf(monkey, kTexts);
    Remember(monkey, "type " + text);
    Type(monkey.program, text);
}

static void GiveCommand(Monkey& monkey) {
    const int command = OneOf(monkey, kCommands);
    Remember(monkey, "command " + std::to_string(command));
    // A frame that is disabled by a dialog, or has a menu open, gets no commands from its user either. Wine never
    // removes the window of a menu that was open when a dialog came.
    if (!IsWindowEnabled(monkey.program.frame) || IsInMenu(monkey.program)) return;
    Command(monkey.program, command);
}

static void UseMouse(Monkey& monkey) {
    const HWND window = SomeWindow(monkey);
    const POINT point = SomePoint(monkey, window);
    Remember(monkey, "mouse on " + ClassOf(window) + " at " + std::to_string(point.x) + ", " + std::to_string(point.y));
    switch (Below(monkey, 6)) {
        case 0: Click(monkey.program, window, point, MouseButton::Right); break;
        case 1: DoubleClick(monkey.program, window, point); break;
        case 2: Drag(monkey.program, window, point, SomePoint(monkey, window)); break;
        case 3: Wheel(monkey.program, window, Below(monkey, 7) - 3); break;
        default: Click(monkey.program, window, point); break;
    }
}

static void Resize(Monkey& monkey) {
    const LONG width = 1 + Below(monkey, 1200), height = 1 + Below(monkey, 900);
    Remember(monkey, "size " + std::to_string(width) + " x " + std::to_string(height));
    PlaceFrame(monkey.program, {20, 20, 20 + width, 20 + height});
}

static void EndWhateverIsOpen(Monkey& monkey) {
    Remember(monkey, "Esc");
    for (int times = 0; times < 3 && IsRunning(monkey.program); ++times) {
        ComeToFront(monkey);
        Press(monkey.program, "Esc");
    }
}

static void WriteNote(Monkey& monkey) {
    Remember(monkey, "a note");
    if (!IsWindowEnabled(monkey.program.frame) || IsInMenu(monkey.program)) return;
    Command(monkey.program, IDM_EDIT_NOTE);
    if (IsShown(NoteEditOf(monkey.program))) {
        TypeText(monkey);
        Command(monkey.program, IDC_NOTE_SAVE);  // not a command of the frame: nothing may happen
        PostMessageA(NoteEditorOf(monkey.program), WM_COMMAND, IDC_NOTE_SAVE, 0);
        Settle(monkey.program);
    }
}

static void Act(Monkey& monkey) {
    ComeToFront(monkey);
    const int kind = Below(monkey, 100);
    if (kind < 35) return PressKey(monkey);
    if (kind < 50) return TypeText(monkey);
    if (kind < 70) return UseMouse(monkey);
    if (kind < 85) return GiveCommand(monkey);
    if (kind < 88) return Resize(monkey);
    if (kind < 92) return WriteNote(monkey);
    return EndWhateverIsOpen(monkey);
}

// ---- What the program needs -----------------------------------------------------------------------------------------

namespace {

struct Needs {
    std::size_t memory = 0;  // working set in bytes
    int drawingObjects = 0;
    std::map<std::string, int> windows;  // how many of each class, also those that are not shown
};

// An entry of the table of drawing objects that every process can read (documented by the projects that debug it).
struct DrawingObject {
    std::uint64_t kernelObject;
    std::uint16_t process, count, upper;
    std::uint8_t type, flags;
    std::uint64_t userObject;
};

}  // namespace

// The system's own count is 0 under Wine, so the table is read. Its place is in the process's environment block.
static int DrawingObjectsOf(HANDLE process) {
    static constexpr std::size_t kTableOffset = 0xF8;  // of GdiSharedHandleTable in the 64-bit PEB
    static constexpr std::size_t kEntries = 0x4000;
    const int counted = static_cast<int>(GetGuiResources(process, GR_GDIOBJECTS));
    if (counted > 0) return counted;
    PROCESS_BASIC_INFORMATION info{};
    NtQueryInformationProcess(process, ProcessBasicInformation, &info, sizeof info, nullptr);
    const char* table = nullptr;
    ReadProcessMemory(process, reinterpret_cast<const char*>(info.PebBaseAddress) + kTableOffset, &table, sizeof table,
                      nullptr);
    std::vector<DrawingObject> objects(kEntries);
    SIZE_T read = 0;
    ReadProcessMemory(process, table, objects.data(), objects.size() * sizeof(DrawingObject), &read);
    int used = 0;
    for (std::size_t i = 0; i < read / sizeof(DrawingObject); ++i) used += objects[i].type != 0;
    return used;
}

static BOOL CALLBACK CountWindow(HWND window, LPARAM counts) {
    ++(*reinterpret_cast<std::map<std::string, int>*>(counts))[ClassOf(window)];
    return TRUE;
}

static BOOL CALLBACK CountWithChildren(HWND window, LPARAM counts) {
    EnumChildWindows(window, CountWindow, counts);
    return CountWindow(window, counts);
}

// The system's own count of windows, menus and the like is 0 under Wine.
static std::map<std::string, int> WindowsOf(const Program& program) {
    std::map<std::string, int> counts;
    EnumThreadWindows(program.threadId, CountWithChildren, reinterpret_cast<LPARAM>(&counts));
    return counts;
}

static Needs NeedsAtRest(Monkey& monkey) {
    ComeToRest(monkey);
    PROCESS_MEMORY_COUNTERS memory{};
    GetProcessMemoryInfo(monkey.program.process.get(), &memory, sizeof memory);
    return {memory.WorkingSetSize, DrawingObjectsOf(monkey.program.process.get()), WindowsOf(monkey.program)};
}

// The first round has made what the system keeps, so the next ones need nothing more, except for an icon of the system
// that only now is shown.
static void ExpectCommandsToGiveBackAll(Monkey& monkey) {
    static constexpr int kRounds = 5;
    static constexpr int kOneIcon = 3;
    const Needs before = NeedsAtRest(monkey);
    for (int round = 0; round < kRounds; ++round) TryEveryCommand(monkey);
    const Needs after = NeedsAtRest(monkey);
    EXPECT_LE(after.drawingObjects, before.drawingObjects + kOneIcon);
    EXPECT_EQ(after.windows, before.windows);
}

// ---- The runs -------------------------------------------------------------------------------------------------------

static int NumberOf(const char* variable, int missing) {
    const char* text = std::getenv(variable);
    return text ? std::atoi(text) : missing;
}

static std::chrono::seconds TimeToPlay() {
    return std::chrono::seconds(NumberOf("VERSEWELL_MONKEY_SECONDS", IsLongRun() ? 300 : 0));
}

static Monkey NewMonkey() {
    const int seed = NumberOf("VERSEWELL_MONKEY_SEED", 1);
    std::cout << "seed " << seed << std::endl;
    Monkey monkey{{}, FolderWithScripture(), std::mt19937(static_cast<unsigned>(seed)), {}};
    WriteNoteSet(monkey.folder, "Mine", {{0, "the first"}, {3, "three # Ge 1:1-5"}, {31101, "the last"}});
    WriteNoteSet(monkey.folder, "Other", {{0, "another\r\nwith a line"}});
    Start(monkey);
    return monkey;
}

static std::string ActsOf(const Monkey& monkey) {
    std::string acts = "the last acts:";
    for (const std::string& act : monkey.lastActs) acts += "\n  " + act;
    return acts;
}

namespace {

struct Measured {
    Clock::time_point time;
    Needs needs;
};

}  // namespace

// What both needed, for each class of windows.
static std::map<std::string, int> InBoth(const std::map<std::string, int>& one,
                                         const std::map<std::string, int>& other) {
    std::map<std::string, int> both;
    for (const auto& [name, count] : one)
        if (const auto found = other.find(name); found != other.end()) both[name] = std::min(count, found->second);
    return both;
}

// The least that was needed between two moments: what is needed for a while, such as a long list, does not count.
static Needs LeastBetween(const std::vector<Measured>& all, Clock::time_point begin, Clock::time_point end) {
    std::optional<Needs> least;
    for (const auto& [time, needs] : all) {
        if (time < begin || time > end) continue;
        if (!least) least = needs;
        least->memory = std::min(least->memory, needs.memory);
        least->drawingObjects = std::min(least->drawingObjects, needs.drawingObjects);
        least->windows = InBoth(least->windows, needs.windows);
    }
    return least.value_or(Needs{});
}

// How many windows of the class are only made when they are first needed, and then stay: the tool tips of the hits by
// book and of references in notes, and the system's own for a menu below another one.
static int MadeLater(const std::string& name) {
    if (name == TOOLTIPS_CLASSA) return 2;
    return name == "#32768" ? 1 : 0;
}

// The classes of windows of which there are more now.
static std::string Grown(const std::map<std::string, int>& before, const std::map<std::string, int>& after) {
    std::string grown;
    for (const auto& [name, count] : after) {
        const auto found = before.find(name);
        const int had = found != before.end() ? found->second : 0;
        if (count > had + MadeLater(name))
            grown += name + " " + std::to_string(had) + " to " + std::to_string(count) + "; ";
    }
    return grown;
}

// Compares the last minute with the second one; a shorter run is not compared.
static void ExpectNoGrowth(const std::vector<Measured>& all) {
    static constexpr std::chrono::minutes kMinute{1};
    static constexpr std::size_t kSlack = 8 << 20;
    static constexpr int kObjectSlack = 24;  // for eight icons of the system that were not shown before
    if (all.empty() || all.back().time - all.front().time < 3 * kMinute) return;
    const Needs before = LeastBetween(all, all.front().time + kMinute, all.front().time + 2 * kMinute);
    const Needs after = LeastBetween(all, all.back().time - kMinute, all.back().time);
    std::cout << "memory " << before.memory / 1024 << " to " << after.memory / 1024 << " KB, drawing objects "
              << before.drawingObjects << " to " << after.drawingObjects << std::endl;
    EXPECT_GT(before.memory, 0u);
    EXPECT_GT(before.drawingObjects, 0);
    EXPECT_LE(after.memory, before.memory + kSlack);
    EXPECT_LE(after.drawingObjects, before.drawingObjects + kObjectSlack);
    EXPECT_EQ(Grown(before.windows, after.windows), "") << "windows";
}

// Acts at least `acts` times and for `time`. When the program has ended by itself, starts it and the measuring again.
static void Play(Monkey& monkey, Clock::duration time, int acts) {
    static constexpr std::chrono::seconds kBetween{5};  // a slow machine acts a few times in it
    const auto end = Clock::now() + time;
    std::vector<Measured> all;
    int done = 0;
    for (; (Clock::now() < end || done < acts) && !testing::Test::HasFailure(); ++done) {
        try {
            Act(monkey);
        } catch (const std::exception&) {
            if (IsRunning(monkey.program)) throw;  // otherwise the act was the last one
        }
        if (HasEnded(monkey)) {
            ExpectNoGrowth(all);
            Start(monkey);
            TryEveryCommand(monkey);
            all.clear();
        }
        if (all.empty() || Clock::now() - all.back().time >= kBetween)
            all.push_back({Clock::now(), NeedsAtRest(monkey)});
    }
    std::cout << done << " acts" << std::endl;
    all.push_back({Clock::now(), NeedsAtRest(monkey)});
    ExpectNoGrowth(all);
}

TEST(Monkey, DoesNotBringTheProgramDown) {
    Monkey monkey = NewMonkey();
    try {
        TryEveryCommand(monkey);
        if (TimeToPlay().count() > 0) ExpectCommandsToGiveBackAll(monkey);
        Play(monkey, TimeToPlay(), 100);
    } catch (const std::exception& fault) {
        FAIL() << fault.what() << "\n" << ActsOf(monkey);
    }
    EXPECT_EQ(CloseProgram(monkey.program), 0);
}
