// The driver of the window tests: starts the real program, acts like a user and inspects the program from outside.
//
// Every procedure that acts waits until the program has processed the input (`Settle`), so the next line of a test can
// check the result. If something is not found or does not happen in time, the test ends with an exception that lists
// the open windows, and a picture of the screen is saved. Texts are 8-bit in the system's ANSI code page.
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
#include "tests/driver/surroundings.h"

// ---- Folders and files ----------------------------------------------------------------------------------------------

// A temporary folder for one test. It is deleted with the last copy of this struct, unless the test failed.
struct ScratchFolder {
    std::filesystem::path path;
    std::shared_ptr<void> keeper;
};

// An empty folder.
ScratchFolder EmptyFolder();

// A folder with copies of the five scripture files, which a test may change.
ScratchFolder FolderWithScripture();

std::string ReadFile(const ScratchFolder& folder, std::string_view name);  // "" when there is none
void WriteFile(const ScratchFolder& folder, std::string_view name, std::string_view content);
bool HasFile(const ScratchFolder& folder, std::string_view name);

// Names of the folder's files, sorted.
std::vector<std::string> FilesIn(const ScratchFolder& folder);

// One value of the folder's Versewell.INI, read with the system's profile functions; "(none)" when it is missing.
std::string Setting(const ScratchFolder& folder, std::string_view section, std::string_view key);
void WriteSetting(const ScratchFolder& folder, std::string_view section, std::string_view key, std::string_view value);

// ---- Starting and closing the program -------------------------------------------------------------------------------

struct CloseHandleDeleter {
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using UniqueHandle = std::unique_ptr<void, CloseHandleDeleter>;

struct UnhookDeleter {
    void operator()(HHOOK hook) const { UnhookWindowsHookEx(hook); }
};
using UniqueHook = std::unique_ptr<HHOOK__, UnhookDeleter>;

struct UnmapViewDeleter {
    void operator()(void* view) const { UnmapViewOfFile(view); }
};
using UniqueView = std::unique_ptr<void, UnmapViewDeleter>;

struct KillProcessDeleter {
    void operator()(HANDLE process) const;  // kills the process if it is still running
};

// One running program. It is killed on destruction if it is still running.
struct Program {
    ScratchFolder folder;
    std::unique_ptr<void, KillProcessDeleter> process;
    DWORD processId = 0;
    DWORD threadId = 0;           // the thread of its windows
    HWND frame = nullptr;         // null until it exists
    UniqueHook probe;             // reads state that is not visible to other processes, see probe.h
    void* probeMemory = nullptr;  // address in the program of the probe's questions and answers
    UniqueView probeView;         // the same memory here
};

struct StartOptions {
    std::string arguments;  // of the command line
    std::string date;       // "2024-02-29 08:00:00": the program's local time at its start; empty for today
    std::string locale;     // "ja_JP.UTF-8": where the code page is from; empty for Latin 1. Not with a date
    std::filesystem::path programFile;  // empty for Surroundings().program
    int showState = SW_SHOWNORMAL;      // passed by the starting process; ignored with a date
    std::string frameClass = "Versewell97";
};

// The full name of a program that is built beside this one.
std::filesystem::path ProgramBesideThis(const char* name);

// Starts the program in the folder and waits until its frame is shown and idle.
Program StartProgram(const ScratchFolder& folder, const StartOptions& options = {});

// Only starts it, for tests of failing starts and of the start itself. `WaitForFrame` does the rest.
Program LaunchProgram(const ScratchFolder& folder, const StartOptions& options = {});
void WaitForFrame(Program& program, const StartOptions& options = {});

// Starts a program of Wine's host in the folder. Its end cannot be waited for directly, only by its effects.
void StartOnHost(const ScratchFolder& folder, const std::string& commandLine);

// Runs a shell command in the folder on Wine's host and waits until it has succeeded.
void RunOnHost(const ScratchFolder& folder, const std::string& command);

// Installs the probe in the program (see probe.h). Needs the frame; `WaitForFrame` calls it.
void HookProbe(Program& program);

// Closes the frame like a user and returns the exit code.
int CloseProgram(Program& program);

// Waits until the program exits and returns the exit code.
int WaitForExit(const Program& program);
bool IsRunning(const Program& program);

// Is this a run of `./check --long` (VERSEWELL_LONG in the environment)?
bool IsLongRun();

// ---- Waiting --------------------------------------------------------------------------------------------------------

constexpr std::chrono::milliseconds kPatience{15000};

// Polls until `isSo` returns true; ends the test with "waited in vain for <what>" after `patience`.
void WaitUntil(const Program& program, std::string_view what, const std::function<bool()>& isSo,
               std::chrono::milliseconds patience = kPatience);

// Waits until the program has processed all its input, messages and painting, or its frame is gone.
void Settle(const Program& program);

// Ends the test: saves a picture of the screen and throws `text` with a list of the program's windows.
[[noreturn]] void Fail(const Program* program, const std::string& text);

// Saves a picture of the screen named after the running test and returns the file's name. Called for every failure.
std::string PictureOfFailure();

// ---- Finding windows ------------------------------------------------------------------------------------------------

// The window reached from `from` by following the child ids. Ends the test when there is none.
HWND Child(HWND from, std::initializer_list<int> ids);

// The visible child with this class and id; two children of the frame have the same id (see resources/ids.h).
HWND ChildOfClass(HWND parent, std::string_view className, int id);

std::string ClassOf(HWND window);
std::string TextOf(HWND window);          // its complete window text
std::string TextOf(HWND parent, int id);  // of a child
RECT RectOnScreen(HWND window);           // with its frame
RECT RectIn(HWND window, HWND ancestor);  // with its frame, in the ancestor's client coordinates
RECT ClientRectOf(HWND window);
bool IsShown(HWND window);             // it and all its ancestors
HWND FocusOf(const Program& program);  // the window with the keyboard focus, null when none
HWND ActiveWindowOf(const Program& program);
bool IsInMenu(const Program& program);                      // a menu is open or the menu bar is active
std::vector<HWND> TopLevelWindows(const Program& program);  // visible ones
std::vector<HWND> ChildrenOf(HWND window);                  // direct ones, in Tab order
std::string DescribeWindows(const Program& program);

// ---- Dialogs and message boxes --------------------------------------------------------------------------------------

// Waits for the program's dialog or message box of this title.
HWND WaitForDialog(const Program& program, std::string_view title);
void WaitForNoDialog(const Program& program);  // until none is open
void CloseWithEsc(const Program& program);     // presses Esc and waits until no dialog is open
bool HasDialog(const Program& program);
std::string MessageText(HWND messageBox);         // the text of a message box
std::string IconOf(HWND messageBox);              // "stop", "question", "exclamation", "information" or "none"
std::vector<std::string> ButtonsOf(HWND dialog);  // texts of its visible push buttons, in Tab order
bool IsChecked(HWND dialog, int id);              // a check box or radio button

// Child ids in Tab order, with one radio button for each group.
std::vector<int> TabOrder(const Program& program, HWND dialog);

// ---- Acting ---------------------------------------------------------------------------------------------------------

// Keys by name, joined by "+": "Alt+W", "Ctrl+PgDn", "Shift+F10", "Enter", "Esc", "Tab", "Left", "a", "/".
void Press(const Program& program, std::string_view keys);

// Presses such keys one after the other, and only then waits. Much faster than Press for hundreds of keys.
void PressInOneGo(const Program& program, const std::vector<std::string>& keys);

// Types text letter by letter.
void Type(const Program& program, std::string_view text);
void TypeWide(const Program& program, std::wstring_view text);  // in UTF-16, for letters outside the code page

// Points are in the window's client coordinates.
enum class MouseButton { Left, Right };
void Click(const Program& program, HWND window, POINT point, MouseButton button = MouseButton::Left);
void Click(const Program& program, HWND window);  // in its middle
void DoubleClick(const Program& program, HWND window, POINT point, MouseButton button = MouseButton::Left);
void Drag(const Program& program, HWND window, POINT from, POINT to);
// Parts of a drag; the point may be outside the window.
void HoldMouse(const Program& program, HWND window, POINT point);  // moves there and presses the left button
void MoveMouse(const Program& program, HWND window, POINT point);
void LetMouseGo(const Program& program);
// Turns the wheel over the middle of the window; positive `notches` turn it away from the user. Wine and newer Windows
// send it to the window under the mouse, older Windows to the focused one.
void Wheel(const Program& program, HWND window, int notches);
void PointAt(HWND window, POINT point);     // moves the mouse there, without waiting
void ReleaseMouse(const Program& program);  // moves the mouse away from the program

// Posts a menu command to the frame, even if its menu item is greyed.
void Command(const Program& program, int id);

// Moves and sizes the frame.
void PlaceFrame(const Program& program, const RECT& place);

// ---- Contents of controls -------------------------------------------------------------------------------------------

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
std::string ToolTip(const Program& program, int command);  // points at the button and waits for the tip

std::vector<std::string> TabLabels(const Program& program, HWND tabs);
int SelectedTab(HWND tabs);
RECT TabDisplayRect(const Program& program, HWND tabs, const RECT& whole);  // `whole` after TCM_ADJUSTRECT
void ClickTab(const Program& program, HWND tabs, int index);

std::vector<std::string> ListStrings(HWND listBox);
std::vector<std::string> ComboStrings(HWND comboBox);

struct TextSelection {
    int start = 0;
    int end = 0;
};
TextSelection RichSelection(const Program& program, HWND richEdit);
void SelectRich(const Program& program, HWND richEdit, TextSelection selection);
DWORD SelectedEffects(const Program& program, HWND richEdit);  // CFE_ bits of the selected characters

std::string ClipboardText();  // CF_TEXT, "" when there is none
void SetClipboardText(std::string_view text);
void SetClipboardText(std::wstring_view text);  // CF_UNICODETEXT

// ---- State that only the program's own process can read -------------------------------------------------------------

// MF_ bits of a command's item in the frame's menu; 0xFFFFFFFF when there is no such item.
UINT MenuState(const Program& program, int command);
bool IsGreyed(const Program& program, int command);
bool IsTicked(const Program& program, int command);
std::string MenuText(const Program& program, int command);  // including "&" and "\t"
std::vector<std::string> MenuBar(const Program& program);   // its titles

struct MenuLine {
    int command = 0;  // 0 for a separator, -1 for a submenu
    std::string text;
    UINT state = 0;  // MF_ bits
};
std::vector<MenuLine> MenuLines(const Program& program, int position);   // of one popup of the menu bar
std::vector<MenuLine> OpenMenuLines(const Program& program);             // of the open popup
std::vector<MenuLine> OpenMenuLines(const Program& program, int place);  // of its submenu in this line, even if closed

struct ScrollState {
    int lowest = 0;
    int highest = 0;
    int page = 0;
    int position = 0;
};
ScrollState VerticalScroll(const Program& program, HWND window);

// What `text` takes in the font of `window`, in pixels: in one line, or in lines of at most `width` if that is not 0.
// `format` adds flags of DrawText.
SIZE SizeOfText(const Program& program, HWND window, std::string_view text, int width = 0, UINT format = 0);

// Makes the program exit with code 9, as if killed, just before its file operation number `last` from now (opening,
// reading, flushing, closing, deleting, renaming and so on). A write counts as two operations, because it can also be
// interrupted in the middle.
void EndAtFileOperation(const Program& program, unsigned last);

// From its file operation number `first` from now on, everything that the program writes fails in the middle, as on a
// full disk; 0: nothing does any more.
void FillDiskAtFileOperation(const Program& program, unsigned first);

// How many file operations lie between those at which a test ends the program in turn: 1 in a long run, otherwise more.
unsigned StepOfFileOperations();

// From now on the program's keyboard types `character` where the digit key is pressed with AltGr, which is Ctrl+Alt.
// Dialogs keep the keyboard of the display.
void TypeWithAltGr(const Program& program, char digit, wchar_t character);
