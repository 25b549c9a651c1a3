// What a screen reader is told by the program's windows, and the events that it hears.
#pragma once

#include <memory>
#include <vector>

#include "tests/driver/accessible_probe.h"
#include "tests/driver/driver.h"

// Everything that a window tells of itself and its children. The test ends if it does not answer.
std::unique_ptr<ToldWindow> Told(const Program& program, HWND window);

// What it tells of one child, which it need not list, and the result of the question.
struct ToldOfChild {
    HRESULT result = 0;
    ToldChild told;
};
ToldOfChild ToldOf(const Program& program, HWND window, int child);

// A screen reader does what a child offers, or gives it the focus.
HRESULT ActOnChild(const Program& program, HWND window, int child);
HRESULT FocusChild(const Program& program, HWND window, int child);

// Keeps events from now on; Heard returns those of the client area of `window` since the last call, and the events of
// other windows are dropped.
void ListenToEvents(const Program& program);
std::vector<ToldEvent> Heard(const Program& program, HWND window);
