// The probe reads state that a process cannot read of another: its menus, scroll bars and message queue. The driver
// hooks a small library into the program's thread (SetWindowsHookEx, WH_CALLWNDPROC), writes a `Probe` into memory that
// it shares with the program and sends the frame the message "VersewellTestProbe" with kProbeMark and the address
// there. The library fills in the answer before the frame gets the message, which it ignores.
#pragma once

#include <windows.h>

struct Program;

constexpr char kProbeMessageName[] = "VersewellTestProbe";
constexpr WPARAM kProbeMark = 0x56657273;

enum class ProbeQuestion : int {
    QueueState,             // result: QS_ bits of the thread's message queue
    MenuBar,                // menu: of `window`
    SubMenu,                // menu: the popup at position `item` of `menu`
    MenuCount,              // result: number of items of `menu`
    MenuItemByPlace,        // result: MF_ bits, id and text of the item at position `item` of `menu`
    MenuItemById,           // the same for the command `item`
    VerticalScroll,         // scroll: of `window`
    EndAtFileOperation,     // see file_operations.h; `item` is the number
    FillDisk,               // the same
    SizeOfText,             // size: of `text` in the font of `window`; `item` is as in SizeOfText of driver.h
    TypeWithAltGr,          // see alt_gr.h; `item` is the key, `id` the character
    AccessibleWindow,       // see accessible_probe.h; memory: a ToldWindow about `window`
    AccessibleChild,        // result, memory: a ToldChild about the child `item` of `window`
    AccessibleAction,       // result: of what the child `item` of `window` offers
    AccessibleFocus,        // result: of giving the child `item` of `window` the focus
    HearEvents,             //
    TakeEvents,             // memory: a ToldEvents
    SetSystemColors,        // result, memory: a SystemColorTable, see look_probe.h
    MessageFont,            // result: the height before; `item` is the new one
    HighContrast,           // result; `item` is 1 for on
    DarkTitle,              // result
    RecordTaskbarList,      // result; `text` is the file, see taskbar_probe.h
    RemoveFromTaskbarList,  // result; `text` are the arguments
};

struct Probe {
    ProbeQuestion question = ProbeQuestion::QueueState;
    int answered = 0;  // set to 1 by the library
    HWND window = nullptr;
    HMENU menu = nullptr;
    UINT item = 0;
    UINT result = 0;
    UINT id = 0;
    SCROLLINFO scroll{};
    void* memory = nullptr;  // in the program
    SIZE size{};             // its cx is the most width of a line that is broken; 0: it is not broken
    char text[512] = "";
};

// Sends a question and returns the answer; ends the test if there is none. Of the driver, not of the library.
Probe AskProbe(const Program& program, Probe probe);
