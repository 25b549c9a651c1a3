// What a window test needs to start the real program, to act as its user and to look at it from outside.
//
// Every procedure that acts waits until the program has dealt with what it was given (`Settle`), so the next line of a
// test may look at the result. What cannot be found or does not come in time ends the test with an exception whose text
// says what was open instead; a picture of the screen is kept. Texts are 8-bit in the system's ANSI code page.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <windows.h>

#include "tests/driver/picture.h"

// ---- Where the tests run ------------------------------------------------------------------------------------------

// Told by the environment of the test process (see tests/README.md); paths are Windows paths.
struct TestSurroundings {
    std::string program;     // VERSEWELL_PROGRAM: the program's file
    std::string data;        // VERSEWELL_DATA: folder of the scripture files
    std::string help;        // VERSEWELL_HELP: folder of the help as it lies beside the program
    std::string pictures;    // VERSEWELL_PICTURES: folder for pictures, the current one when not given
    std::string dater;       // VERSEWELL_AT_DATE: tests/at_date, which starts a program on another date
    std::string pageReader;  // VERSEWELL_PAGE_TEXT: tests/page_text, which takes what a printer is given
    std::string fullDisk;    // VERSEWELL_FULL_DISK: a file that can be opened and takes no byte
};
const TestSurroundings& Surroundings();

// ---- Folders and files --------------------------------------------------------------------------------------------

// A new folder of one test; it goes when the last copy of this does, unless the test failed.
struct ScratchFolder {
    std::filesystem::path path;
    std::shared_ptr<void> keeper;
};

// An empty folder.
ScratchFolder EmptyFolder();

// A folder with the five scripture files in it (copies: a test may spoil them).
ScratchFolder FolderWithScripture();

std::string ReadFile(const ScratchFolder& folder, std::string_view name);  // "" when there is none
void WriteFile(const ScratchFolder& folder, std::string_view name, std::string_view content);
bool HasFile(const ScratchFolder& folder, std::string_view name);

// Names of the folder's files, sorted.
std::vector<std::string> FilesIn(const ScratchFolder& folder);

// One value of the folder's Versewell.INI through the system's profile reader; "(none)" when it is not there.
std::string Setting(const ScratchFolder& folder, std::string_view section, std::string_view key);
void WriteSetting(const ScratchFolder& folder, std::string_view section, std::string_view key, std::string_view value);

// ---- The program's life -------------------------------------------------------------------------------------------

struct CloseHandleDeleter {
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using UniqueHandle = std::unique_ptr<void, CloseHandleDeleter>;

struct UnhookDeleter {
    void operator()(HHOOK hook) const { UnhookWindowsHookEx(hook); }
};
using UniqueHook = std::unique_ptr<HHOOK__, UnhookDeleter>;

struct KillProcessDeleter {
    void operator()(HANDLE process) const;  // ends the process if it still runs
};

// One running program. When it goes, a program that still runs is killed.
struct Program {
    ScratchFolder folder;
    std::unique_ptr<void, KillProcessDeleter> process;
    DWORD processId = 0;
    DWORD threadId = 0;           // of its windows
    HWND frame = nullptr;         // once it is there
    UniqueHook probe;             // answers questions that Windows keeps inside the process, see probe.h
    void* probeMemory = nullptr;  // in the program: where questions and answers lie
};

struct StartOptions {
    std::string arguments;          // behind the program's name
    std::string date;               // "2024-02-29 08:00:00": the program's local time at its start; empty for today
    std::string programFile;        // another file than Surroundings().program
    int showState = SW_SHOWNORMAL;  // on the command line; not with a date
    std::string frameClass = "Versewell97";
};

// Starts the program in the folder and waits until its frame is shown and idle.
Program StartProgram(const ScratchFolder& folder, const StartOptions& options = {});

// Only starts it: for starts that should fail, and for what is seen during the start. `WaitForFrame` does the rest.
Program LaunchProgram(const ScratchFolder& folder, const StartOptions& options = {});
void WaitForFrame(Program& program, const StartOptions& options = {});

// Starts a program of Wine's host in the folder. There is no way to wait for its end but by what it does.
void StartOnHost(const ScratchFolder& folder, const std::string& commandLine);

// Makes the program answer probes (see probe.h); `WaitForFrame` does it. Needs the frame.
void HookProbe(Program& program);

// Closes the frame as its user would and gives the exit code.
int CloseProgram(Program& program);

// Waits for the program's end and gives the exit code.
int WaitForExit(const Program& program);
bool IsRunning(const Program& program);

// ---- Waiting ------------------------------------------------------------------------------------------------------

constexpr std::chrono::milliseconds kPatience{15000};

// Asks until the answer is yes; ends the test with "waited in vain for <what>" when it never is.
void WaitUntil(const Program& program, std::string_view what, const std::function<bool()>& isSo,
               std::chrono::milliseconds patience = kPatience);

// Waits until the program has dealt with all input, messages and painting that it was given, or its frame is gone.
void Settle(const Program& program);

// Ends the test: keeps a picture of the screen and throws `text` with a list of the program's windows.
[[noreturn]] void Fail(const Program* program, const std::string& text);

// Keeps a picture of the screen under the running test's name and gives the file's name. Called for every failure.
std::string PictureOfFailure();

// ---- Finding windows ----------------------------------------------------------------------------------------------

// The window reached from `from` by child ids, one after the other. Ends the test when there is none.
HWND Child(HWND from, std::initializer_list<int> ids);

// The frame's visible child of this id: two of its children share one (see resources/ids.h).
HWND ChildOfClass(HWND parent, std::string_view className, int id);

std::string ClassOf(HWND window);
std::string TextOf(HWND window);          // its window text, whole
std::string TextOf(HWND parent, int id);  // of a child
RECT RectOnScreen(HWND window);           // with its frame
RECT RectIn(HWND window, HWND ancestor);  // with its frame, in the ancestor's client coordinates
RECT ClientRectOf(HWND window);
bool IsShown(HWND window);             // it and all its ancestors
HWND FocusOf(const Program& program);  // the window with the keyboard focus, null when none
HWND ActiveWindowOf(const Program& program);
bool IsInMenu(const Program& program);                      // is a menu open or the menu bar being walked?
std::vector<HWND> TopLevelWindows(const Program& program);  // visible ones
std::vector<HWND> ChildrenOf(HWND window);                  // direct ones, in Tab order
std::string DescribeWindows(const Program& program);

// ---- Dialogs and message boxes --------------------------------------------------------------------------------------

// Waits for the program's dialog or message box of this title.
HWND WaitForDialog(const Program& program, std::string_view title);
void WaitForNoDialog(const Program& program);  // until none is open
bool HasDialog(const Program& program);
std::string MessageText(HWND messageBox);         // the text of a message box
std::string IconOf(HWND messageBox);              // "stop", "question", "exclamation", "information" or "none"
std::vector<std::string> ButtonsOf(HWND dialog);  // texts of its visible push buttons, in Tab order
bool IsChecked(HWND dialog, int id);              // a check box or radio button

// Child ids in the order in which Tab reaches them, one radio button standing for its group.
std::vector<int> TabOrder(const Program& program, HWND dialog);

// ---- Acting -----------------------------------------------------------------------------------------------------

// Keys by name, joined by "+": "Alt+W", "Ctrl+PgDn", "Shift+F10", "Enter", "Esc", "Tab", "Left", "a", "/".
void Press(const Program& program, std::string_view keys);

// Types text as its letters.
void Type(const Program& program, std::string_view text);

// Points are in the window's client coordinates.
enum class MouseButton { Left, Right };
void Click(const Program& program, HWND window, POINT point, MouseButton button = MouseButton::Left);
void Click(const Program& program, HWND window);  // in its middle
void DoubleClick(const Program& program, HWND window, POINT point, MouseButton button = MouseButton::Left);
void Drag(const Program& program, HWND window, POINT from, POINT to);
// Parts of a drag; the point may lie outside the window.
void HoldMouse(const Program& program, HWND window, POINT point);  // moves there and presses the left button
void MoveMouse(const Program& program, HWND window, POINT point);
void LetMouseGo(const Program& program);
// Over the window's middle, by notches; above zero: away from the user. Which window it reaches is the system's affair:
// Wine and newer Windows give it to the one under the mouse, older Windows to the one with the focus.
void Wheel(const Program& program, HWND window, int notches);
void PointAt(HWND window, POINT point);     // moves the mouse there, without waiting
void ReleaseMouse(const Program& program);  // moves the mouse out of the program's way

// A command as from a menu: posted to the frame, whatever state its menu item is in.
void Command(const Program& program, int id);

// Moves and sizes the frame.
void PlaceFrame(const Program& program, const RECT& place);

// ---- What controls show -------------------------------------------------------------------------------------------

std::string StatusPart(const Program& program, int part);
std::vector<int> StatusEdges(const Program& program);  // right edges in client pixels, -1: to the end

struct ToolButton {
    int command = 0;  // 0 for a separator
    int image = 0;
    BYTE state = 0;  // TBSTATE_ bits
    BYTE style = 0;  // TBSTYLE_ bits
};
std::vector<ToolButton> ToolButtons(const Program& program);
BYTE ToolState(const Program& program, int command);       // TBSTATE_ bits
RECT ToolRect(const Program& program, int command);        // in the toolbar's client coordinates
std::string ToolTip(const Program& program, int command);  // by pointing at the button until the tip shows

std::vector<std::string> TabLabels(const Program& program, HWND tabs);
int SelectedTab(HWND tabs);
RECT TabDisplayRect(const Program& program, HWND tabs, const RECT& whole);  // what TCM_ADJUSTRECT makes of `whole`
void ClickTab(const Program& program, HWND tabs, int index);

std::vector<std::string> ListStrings(HWND listBox);
std::vector<std::string> ComboStrings(HWND comboBox);

struct TextSelection {
    int start = 0;
    int end = 0;
};
TextSelection RichSelection(const Program& program, HWND richEdit);
void SelectRich(const Program& program, HWND richEdit, TextSelection selection);

std::string ClipboardText();  // CF_TEXT, "" when there is none
void SetClipboardText(std::string_view text);

// ---- What only the program's own process can see --------------------------------------------------------------------

// MF_ bits of a command's item in the frame's menu; 0xFFFFFFFF when no menu has it.
UINT MenuState(const Program& program, int command);
bool IsGreyed(const Program& program, int command);
bool IsTicked(const Program& program, int command);
std::string MenuText(const Program& program, int command);  // with "&" and "\t" as they stand
std::vector<std::string> MenuBar(const Program& program);   // its titles

struct MenuLine {
    int command = 0;  // 0 for a separator, -1 for a submenu
    std::string text;
    UINT state = 0;  // MF_ bits
};
std::vector<MenuLine> MenuLines(const Program& program, int position);   // of one popup of the bar
std::vector<MenuLine> OpenMenuLines(const Program& program);             // of the popup that is open now
std::vector<MenuLine> OpenMenuLines(const Program& program, int place);  // of its submenu in this line, open or not

struct ScrollState {
    int lowest = 0;
    int highest = 0;
    int page = 0;
    int position = 0;
};
ScrollState VerticalScroll(const Program& program, HWND window);

// The program will end with file operation number `last` from here (opening, reading, flushing, closing, deleting,
// renaming and the like), as if killed, with exit code 9: before the operation is done. A write counts as two, for it
// may also end in the middle.
void EndAtFileOperation(const Program& program, unsigned last);
