// Questions that only a program's own thread can answer: a process cannot read another's menus, scroll bars or message
// queue. The driver hooks a small library into the program's thread (SetWindowsHookEx, WH_CALLWNDPROC), lays a `Probe`
// into the program's memory and sends the frame the message "VersewellTestProbe" with kProbeMark and the address.
// The library fills in the answer before the frame sees the message, which means nothing to it.
#pragma once

#include <windows.h>

constexpr char kProbeMessageName[] = "VersewellTestProbe";
constexpr WPARAM kProbeMark = 0x56657273;

enum class ProbeQuestion : int {
    QueueState,          // result: QS_ bits of what waits for the thread
    MenuBar,             // menu: of `window`
    SubMenu,             // menu: the popup at position `item` of `menu`
    MenuCount,           // result: how many items `menu` has
    MenuItemByPlace,     // result: MF_ bits, id and text of the item at position `item` of `menu`
    MenuItemById,        // the same of the command `item`
    VerticalScroll,      // scroll: of `window`
    EndAtFileOperation,  // the program will end with number `item` from here
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
    char text[512] = "";
};
