// A window with items of text, as screen readers see it: an IAccessible whose children are the items. It knows nothing
// of what they are; the window tells it through the procedures of an AccessibleWindow.
#pragma once

#include <string>
#include <vector>

#include "win32/windows_api.h"

#include <oleacc.h>  // needs the Windows headers

// The window itself (the child CHILDID_SELF) or one of its children. An empty text means that there is none.
struct AccessibleItem {
    LONG role = 0;   // ROLE_SYSTEM_
    LONG state = 0;  // STATE_SYSTEM_
    std::wstring name;
    std::wstring description;
    std::wstring value;
    std::wstring action;  // the name of what `act` does with it
    RECT place{};         // in the client area; empty if it is not shown
};

// How a window tells of its items. Children have numbers from 1 on that stay theirs while other ones are shown, so that
// a screen reader notices that another one has the focus. `device` is passed to each procedure.
struct AccessibleWindow {
    const void* device = nullptr;
    bool (*describe)(const void* device, int child, AccessibleItem& item) = nullptr;  // false if there is no such child
    std::vector<int> (*shown)(const void* device) = nullptr;                          // in reading order
    std::vector<int> (*selected)(const void* device) = nullptr;                       // of those that are shown
    int (*focused)(const void* device) = nullptr;  // CHILDID_SELF for the window itself, -1 if the focus is elsewhere
    int (*childAt)(const void* device, int x, int y) = nullptr;  // CHILDID_SELF if none is there
    void (*takeFocus)(const void* device, int child) = nullptr;
    void (*act)(const void* device, int child) = nullptr;  // only for items with an action
};

// Answers WM_GETOBJECT for a window: with a new object if a client asks for the window's contents (OBJID_CLIENT),
// otherwise as the system does. The object may outlive the window; its methods then return CO_E_OBJNOTCONNECTED.
LRESULT AnswerGetObject(HWND window, const AccessibleWindow& about, WPARAM wParam, LPARAM lParam);

// Gives a control of the system a name for screen readers, which is shown nowhere. They do not take it from the text of
// a control whose text is what it contains, or that usually has a label. Wine has no such names; there nothing happens.
void NameForScreenReaders(HWND control, const wchar_t* name);
