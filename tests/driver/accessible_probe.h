// What a screen reader is told by a window, asked inside the program. Part of the probe library.
#pragma once

#include <windows.h>

constexpr int kMostToldChildren = 100;
constexpr int kMostToldEvents = 500;

struct ToldChild {
    int child = 0;  // its number; 0 for the window itself
    int role = 0;
    unsigned state = 0;
    RECT place{};        // on the screen
    int hit = -1;        // the child in the middle of its place; -1 if none
    int next = -1;       // the child that follows; -1 if none
    HRESULT placed = 0;  // of the question for the place
    char name[1500] = "";
    char description[200] = "";
    char value[100] = "";
    char action[50] = "";
};

struct ToldWindow {
    HRESULT result = 0;  // of the question for the object
    ToldChild self{};
    int count = -1;   // as the window counts its children
    int listed = -1;  // as it lists them
    int focused = -1;
    int selectedCount = -1;
    int selected[kMostToldChildren] = {};
    ToldChild children[kMostToldChildren] = {};  // the first `listed` ones
};

struct ToldEvent {
    DWORD event = 0;
    HWND window = nullptr;
    LONG object = 0, child = 0;
};

struct ToldEvents {
    int count = 0;
    ToldEvent events[kMostToldEvents] = {};
};

// Fills `told` with what `window` tells.
void AskWindow(HWND window, ToldWindow& told);

// Fills `told` with what it tells of one child, even if it does not list it. The result is that of the first question.
HRESULT AskChild(HWND window, int child, ToldChild& told);

// Does what a child offers, or gives it the focus.
HRESULT ActOn(HWND window, int child);
HRESULT GiveFocusTo(HWND window, int child);

// Keeps the events of the program's contents from now on; TakeEvents moves those kept until now to `told`.
void HearEvents();
void TakeEvents(ToldEvents& told);
