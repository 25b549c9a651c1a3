// Finding windows and describing them.

#include <sstream>

#include <gtest/gtest.h>

#include "tests/driver/driver.h"

std::string ClassOf(HWND window) {
    char name[64];
    GetClassNameA(window, name, sizeof name);
    return name;
}

std::string TextOf(HWND window) {
    DWORD_PTR length = 0;
    SendMessageTimeoutA(window, WM_GETTEXTLENGTH, 0, 0, SMTO_NORMAL, 5000, &length);
    std::string text(length + 1, '\0');
    DWORD_PTR copied = 0;
    SendMessageTimeoutA(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()), SMTO_NORMAL, 5000,
                        &copied);
    text.resize(std::min<std::size_t>(copied, length));
    return text;
}

std::string TextOf(HWND parent, int id) {
    return TextOf(Child(parent, {id}));
}

RECT RectOnScreen(HWND window) {
    RECT rect;
    GetWindowRect(window, &rect);
    return rect;
}

RECT RectIn(HWND window, HWND ancestor) {
    RECT rect = RectOnScreen(window);
    MapWindowPoints(nullptr, ancestor, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

RECT ClientRectOf(HWND window) {
    RECT rect;
    GetClientRect(window, &rect);
    return rect;
}

bool IsShown(HWND window) {
    return IsWindowVisible(window) != FALSE;
}

std::vector<HWND> TopLevelWindows(const Program& program) {
    std::vector<HWND> windows;
    EnumWindows(
        [](HWND window, LPARAM list) -> BOOL {
            if (IsWindowVisible(window)) reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&windows));
    std::erase_if(windows, [&](HWND window) {
        DWORD processId = 0;
        GetWindowThreadProcessId(window, &processId);
        return processId != program.processId;
    });
    return windows;
}

// The thread that owns all windows of the program; 0 while there are none.
static DWORD UiThread(const Program& program) {
    const std::vector<HWND> windows = TopLevelWindows(program);
    return windows.empty() ? 0 : GetWindowThreadProcessId(windows.front(), nullptr);
}

// A thread id of 0 would mean the foreground thread, which may belong to another program.
static GUITHREADINFO ThreadState(const Program& program) {
    GUITHREADINFO state{};
    state.cbSize = sizeof state;
    const DWORD thread = UiThread(program);
    if (thread != 0) GetGUIThreadInfo(thread, &state);
    return state;
}

HWND FocusOf(const Program& program) {
    return ThreadState(program).hwndFocus;
}
HWND ActiveWindowOf(const Program& program) {
    return ThreadState(program).hwndActive;
}
bool IsInMenu(const Program& program) {
    return (ThreadState(program).flags & (GUI_INMENUMODE | GUI_POPUPMENUMODE)) != 0;
}

std::vector<HWND> ChildrenOf(HWND window) {
    std::vector<HWND> children;
    for (HWND child = GetWindow(window, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
        children.push_back(child);
    return children;
}

static void Describe(std::ostream& out, HWND window, int depth) {
    const RECT rect = RectOnScreen(window);
    out << std::string(static_cast<std::size_t>(depth) * 2, ' ') << ClassOf(window);
    if (depth > 1) out << " id " << GetDlgCtrlID(window);
    out << " \"" << TextOf(window).substr(0, 60) << "\" at " << rect.left << "," << rect.top << " size "
        << rect.right - rect.left << "x" << rect.bottom - rect.top << (IsWindowVisible(window) ? "" : " hidden")
        << (IsWindowEnabled(window) ? "" : " disabled") << "\n";
    for (const HWND child : ChildrenOf(window)) Describe(out, child, depth + 1);
}

std::string DescribeWindows(const Program& program) {
    std::ostringstream out;
    out << (IsRunning(program) ? "open windows:\n" : "the program has ended; open windows:\n");
    for (const HWND window : TopLevelWindows(program)) Describe(out, window, 1);
    const HWND focus = FocusOf(program);
    if (focus != nullptr) out << "focus: " << ClassOf(focus) << " id " << GetDlgCtrlID(focus) << "\n";
    return out.str();
}

HWND Child(HWND from, std::initializer_list<int> ids) {
    std::string path;
    for (const int id : ids) {
        path.append(" ").append(std::to_string(id));
        const HWND child = GetDlgItem(from, id);
        if (child == nullptr) Fail(nullptr, "no child with id" + path + " in " + ClassOf(from) + " " + TextOf(from));
        from = child;
    }
    return from;
}

HWND ChildOfClass(HWND parent, std::string_view className, int id) {
    for (const HWND child : ChildrenOf(parent))
        if (GetDlgCtrlID(child) == id && ClassOf(child) == className) return child;
    Fail(nullptr, "no " + std::string(className) + " with id " + std::to_string(id) + " in " + ClassOf(parent));
}
