// Keyboard and mouse input, sent in the same way as a user's.

#include <algorithm>
#include <map>
#include <thread>

#include "tests/driver/driver.h"
#include "tests/driver/held_keys.h"

static const std::map<std::string_view, WORD> kKeyNames = {
    {"Alt", VK_MENU},      {"Ctrl", VK_CONTROL},  {"Shift", VK_SHIFT},
    {"Enter", VK_RETURN},  {"Esc", VK_ESCAPE},    {"Tab", VK_TAB},
    {"Space", VK_SPACE},   {"Left", VK_LEFT},     {"Right", VK_RIGHT},
    {"Up", VK_UP},         {"Down", VK_DOWN},     {"PgUp", VK_PRIOR},
    {"PgDn", VK_NEXT},     {"Home", VK_HOME},     {"End", VK_END},
    {"Insert", VK_INSERT}, {"Delete", VK_DELETE}, {"Back", VK_BACK},
    {"Menu", VK_APPS},     {"F1", VK_F1},         {"F2", VK_F2},
    {"F3", VK_F3},         {"F4", VK_F4},         {"F5", VK_F5},
    {"F6", VK_F6},         {"F7", VK_F7},         {"F8", VK_F8},
    {"F9", VK_F9},         {"F10", VK_F10},       {"F11", VK_F11},
    {"F12", VK_F12},       {"NumPlus", VK_ADD},   {"NumMinus", VK_SUBTRACT},
};

// These keys exist twice on a keyboard; without the flag the one on the numeric pad is meant.
static bool IsExtended(WORD key) {
    static constexpr WORD kExtended[] = {VK_LEFT, VK_RIGHT, VK_UP,     VK_DOWN,   VK_PRIOR, VK_NEXT,
                                         VK_HOME, VK_END,   VK_INSERT, VK_DELETE, VK_APPS};
    return std::find(std::begin(kExtended), std::end(kExtended), key) != std::end(kExtended);
}

static INPUT KeyEvent(WORD key, DWORD flags) {
    INPUT event{};
    event.type = INPUT_KEYBOARD;
    event.ki.wVk = key;
    event.ki.wScan = static_cast<WORD>(MapVirtualKeyA(key, MAPVK_VK_TO_VSC));
    event.ki.dwFlags = flags | (IsExtended(key) ? DWORD{KEYEVENTF_EXTENDEDKEY} : 0);
    return event;
}

static WORD KeyNamed(const Program& program, std::string_view name) {
    const auto found = kKeyNames.find(name);
    if (found != kKeyNames.end()) return found->second;
    const SHORT key = name.size() == 1 ? VkKeyScanA(name[0]) : SHORT{-1};
    if (key == -1 || HIBYTE(key) != 0) Fail(&program, "no key is called \"" + std::string(name) + "\"");
    return LOBYTE(key);
}

static void SendEvents(std::vector<INPUT> events) {
    SendInput(static_cast<UINT>(events.size()), events.data(), sizeof(INPUT));
}

// Keys go to the foreground window. Fails the test if that is not the program's.
static void MustBeInFront(const Program& program) {
    WaitUntil(program, "the program to be in front", [&] {
        DWORD processId = 0;
        GetWindowThreadProcessId(GetForegroundWindow(), &processId);
        return processId == program.processId;
    });
}

static std::vector<INPUT> EventsOfKeys(const Program& program, std::string_view keys) {
    std::vector<WORD> held;
    for (std::size_t at = 0; at <= keys.size();) {
        const std::size_t end = std::min(keys.find('+', at + 1), keys.size());
        held.push_back(KeyNamed(program, keys.substr(at, end - at)));
        at = end + 1;
    }
    std::vector<INPUT> events;
    for (const WORD key : held) events.push_back(KeyEvent(key, 0));
    for (auto key = held.rbegin(); key != held.rend(); ++key) events.push_back(KeyEvent(*key, KEYEVENTF_KEYUP));
    return events;
}

void Press(const Program& program, std::string_view keys) {
    MustBeInFront(program);
    SendEvents(EventsOfKeys(program, keys));
    Settle(program);
}

void PressInOneGo(const Program& program, const std::vector<std::string>& keys) {
    MustBeInFront(program);
    std::vector<INPUT> events;
    for (const std::string& each : keys) {
        const std::vector<INPUT> more = EventsOfKeys(program, each);
        events.insert(events.end(), more.begin(), more.end());
    }
    SendEvents(events);
    Settle(program);
}

void HoldKeys(const Program& program, std::string_view keys, int repetitions) {
    MustBeInFront(program);
    std::vector<INPUT> events = EventsOfKeys(program, keys);
    const auto down = events.begin() + static_cast<std::ptrdiff_t>(events.size() / 2 - 1);  // of the last key
    const INPUT last = *down;
    events.insert(down, static_cast<std::size_t>(repetitions), last);
    SendEvents(events);
    Settle(program);
}

void HoldKeysDown(const Program& program, std::string_view keys) {
    MustBeInFront(program);
    std::vector<INPUT> events = EventsOfKeys(program, keys);
    events.resize(events.size() / 2);
    SendEvents(events);
    Settle(program);
}

void LetKeysGo(const Program& program, std::string_view keys) {
    const std::vector<INPUT> events = EventsOfKeys(program, keys);
    SendEvents({events.begin() + static_cast<std::ptrdiff_t>(events.size() / 2), events.end()});
    Settle(program);
}

// For a letter that no key produces.
static std::vector<INPUT> EventsOfWideLetter(wchar_t letter) {
    INPUT event{};
    event.type = INPUT_KEYBOARD;
    event.ki.wScan = static_cast<WORD>(letter);
    event.ki.dwFlags = KEYEVENTF_UNICODE;
    INPUT release = event;
    release.ki.dwFlags |= KEYEVENTF_KEYUP;
    return {event, release};
}

static std::vector<INPUT> EventsOfLetter(char letter) {
    const SHORT key = VkKeyScanA(letter);
    if (key != -1 && HIBYTE(key) <= 1) {
        std::vector<INPUT> events{KeyEvent(LOBYTE(key), 0), KeyEvent(LOBYTE(key), KEYEVENTF_KEYUP)};
        if (HIBYTE(key) == 0) return events;
        events.insert(events.begin(), KeyEvent(VK_SHIFT, 0));
        events.push_back(KeyEvent(VK_SHIFT, KEYEVENTF_KEYUP));
        return events;
    }
    wchar_t wide = 0;
    MultiByteToWideChar(CP_ACP, 0, &letter, 1, &wide, 1);
    return EventsOfWideLetter(wide);
}

void Type(const Program& program, std::string_view text) {
    MustBeInFront(program);
    for (const char letter : text) {
        SendEvents(EventsOfLetter(letter));
        Settle(program);
    }
}

void TypeWide(const Program& program, std::wstring_view text) {
    MustBeInFront(program);
    for (const wchar_t letter : text) {
        SendEvents(EventsOfWideLetter(letter));
        Settle(program);
    }
}

// ---- Mouse ----------------------------------------------------------------------------------------------------------

static INPUT MouseEvent(DWORD flags, DWORD data = 0) {
    INPUT event{};
    event.type = INPUT_MOUSE;
    event.mi.dwFlags = flags;
    event.mi.mouseData = data;
    return event;
}

// Absolute mouse coordinates range over 65536 units per screen; rounding up reaches the right pixel.
static INPUT MoveEvent(POINT onScreen) {
    const auto scaled = [](LONG pixel, int screen) { return (pixel * 65536 + screen - 1) / screen; };
    INPUT event = MouseEvent(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE);
    event.mi.dx = scaled(onScreen.x, GetSystemMetrics(SM_CXSCREEN));
    event.mi.dy = scaled(onScreen.y, GetSystemMetrics(SM_CYSCREEN));
    return event;
}

static INPUT MoveTo(HWND window, POINT point) {
    ClientToScreen(window, &point);
    return MoveEvent(point);
}

void PointAt(HWND window, POINT point) {
    SendEvents({MoveTo(window, point)});
}

void ReleaseMouse(const Program& program) {
    SendEvents({MoveEvent({GetSystemMetrics(SM_CXSCREEN) - 1, GetSystemMetrics(SM_CYSCREEN) - 1})});
    Settle(program);
}

// Two clicks of a test in the same place must not become a double click, so wait between them.
static std::chrono::steady_clock::time_point lastPress;
static POINT lastPlace{-1000, -1000};  // on the screen

static void LetDoubleClickTimePass(HWND window, POINT point) {
    ClientToScreen(window, &point);
    const bool isNear = std::abs(point.x - lastPlace.x) <= GetSystemMetrics(SM_CXDOUBLECLK) &&
                        std::abs(point.y - lastPlace.y) <= GetSystemMetrics(SM_CYDOUBLECLK);
    if (isNear) std::this_thread::sleep_until(lastPress + std::chrono::milliseconds(GetDoubleClickTime() + 20));
    lastPlace = point;
}

void Click(const Program& program, HWND window, POINT point, MouseButton button) {
    LetDoubleClickTimePass(window, point);
    const bool isLeft = button == MouseButton::Left;
    SendEvents({MoveTo(window, point)});
    Settle(program);
    SendEvents({MouseEvent(isLeft ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_RIGHTDOWN)});
    lastPress = std::chrono::steady_clock::now();
    Settle(program);
    SendEvents({MouseEvent(isLeft ? MOUSEEVENTF_LEFTUP : MOUSEEVENTF_RIGHTUP)});
    Settle(program);
}

void Click(const Program& program, HWND window) {
    const RECT rect = ClientRectOf(window);
    Click(program, window, {rect.right / 2, rect.bottom / 2});
}

void DoubleClick(const Program& program, HWND window, POINT point, MouseButton button) {
    LetDoubleClickTimePass(window, point);
    const bool isLeft = button == MouseButton::Left;
    const INPUT down = MouseEvent(isLeft ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_RIGHTDOWN);
    const INPUT up = MouseEvent(isLeft ? MOUSEEVENTF_LEFTUP : MOUSEEVENTF_RIGHTUP);
    SendEvents({MoveTo(window, point), down, up, down, up});
    lastPress = std::chrono::steady_clock::now();
    Settle(program);
}

void HoldMouse(const Program& program, HWND window, POINT point) {
    LetDoubleClickTimePass(window, point);
    SendEvents({MoveTo(window, point), MouseEvent(MOUSEEVENTF_LEFTDOWN)});
    Settle(program);
}

// Wine moves the X pointer too, and its motion event reaches the program a second time. On a busy machine that can be
// after the next movement. A round trip to the X server makes sure that the event has been sent.
static void LetPointerFollow() {
    const HDC screen = GetDC(nullptr);
    for (int answer = 0; answer < 2; ++answer) GetPixel(screen, 0, 0);
    ReleaseDC(nullptr, screen);
}

void MoveMouse(const Program& program, HWND window, POINT point) {
    SendEvents({MoveTo(window, point)});
    LetPointerFollow();
    Settle(program);
}

void LetMouseGo(const Program& program) {
    SendEvents({MouseEvent(MOUSEEVENTF_LEFTUP)});
    lastPress = std::chrono::steady_clock::now();
    Settle(program);
}

void Drag(const Program& program, HWND window, POINT from, POINT to) {
    constexpr int kSteps = 8;
    HoldMouse(program, window, from);
    for (int step = 1; step <= kSteps; ++step)
        MoveMouse(program, window,
                  {from.x + (to.x - from.x) * step / kSteps, from.y + (to.y - from.y) * step / kSteps});
    LetMouseGo(program);
}

void Wheel(const Program& program, HWND window, int notches) {
    const RECT rect = ClientRectOf(window);
    SendEvents({MoveTo(window, {rect.right / 2, rect.bottom / 2}),
                MouseEvent(MOUSEEVENTF_WHEEL, static_cast<DWORD>(notches * WHEEL_DELTA))});
    Settle(program);
}

// ---- Commands and places --------------------------------------------------------------------------------------------

void Command(const Program& program, int id) {
    PostMessageA(program.frame, WM_COMMAND, static_cast<WPARAM>(id), 0);
    Settle(program);
}

void PlaceFrame(const Program& program, const RECT& place) {
    SetWindowPos(program.frame, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    Settle(program);
}
