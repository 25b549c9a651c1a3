#include "notes/caret_keys_win32.h"

#include <array>
#include <cstdlib>

#include "notes/word_stops.h"
#include "win32/controls.h"
#include "win32/plain_text.h"

static bool IsArrow(WPARAM key) {
    return key == VK_LEFT || key == VK_RIGHT;
}

bool IsKeyByWord(WPARAM key) {
    return IsArrow(key) && IsControlDown();
}

// Passes a key to the control and takes the caret out of the line end into which an arrow key may have moved it. The
// same key moves it on and, with Shift, the right end of the selection.
static LRESULT PassKey(const CaretControl& control, WPARAM key, LPARAM lParam) {
    const auto pass = [&] { return CallWindowProcA(control.procedure, control.window, WM_KEYDOWN, key, lParam); };
    static constexpr int kLongestLineEnd = 3;
    PutSelectionInOrder(control.window);
    const LRESULT result = pass();
    const bool isArrow = IsArrow(key) && !IsKeyDown(VK_CONTROL);
    for (int step = 1; isArrow && step < kLongestLineEnd && IsSelectionInLineEnd(control.window); ++step) pass();
    PutSelectionInOrder(control.window);
    return result;
}

static CHARRANGE SelectionIn(HWND window) {
    CHARRANGE range{};
    SendMessageA(window, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
    return range;
}

static void Select(const CaretControl& control, LONG start, LONG end) {
    CHARRANGE range{start, end};
    SendMessageA(control.window, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
}

// ---- Word by word ---------------------------------------------------------------------------------------------------

namespace {

// The end of the selection that a key has moved, which without Shift are both.
struct MovedEnd {
    bool hasMoved = false;
    LONG place = 0;
    LONG otherEnd = 0;
};

}  // namespace

static MovedEnd StepBy(const CaretControl& control, WPARAM key, LPARAM lParam) {
    const CHARRANGE before = SelectionIn(control.window);
    PassKey(control, key, lParam);
    const CHARRANGE after = SelectionIn(control.window);
    if (after.cpMin != before.cpMin) return {true, after.cpMin, after.cpMax};
    return {after.cpMax != before.cpMax, after.cpMax, after.cpMin};
}

static LONG RowOf(const CaretControl& control, LONG place) {
    return static_cast<LONG>(SendMessageA(control.window, EM_EXLINEFROMCHAR, 0, place));
}

// Up or down, but not as far as to the row of `place`. What is told as the row of a caret can be one too many where a
// row ends.
static void StepByRows(const CaretControl& control, MovedEnd end, LONG place, LPARAM lParam) {
    static constexpr LONG kFewRows = 2;
    const LONG row = RowOf(control, place);
    const WPARAM key = place < end.place ? VK_UP : VK_DOWN;
    while (end.hasMoved && std::abs(RowOf(control, end.place) - row) > kFewRows) end = StepBy(control, key, lParam);
}

// Brings the moved end to `place`, or nearer to it. The control can only be told selections whose right end is the one
// that keys move, so the left end is moved by keys, and the right one not beyond the other.
static void GoTowards(const CaretControl& control, const MovedEnd& end, LONG place, LPARAM lParam) {
    if (!IsKeyDown(VK_SHIFT)) {
        Select(control, place, place);
    } else if (place > end.otherEnd) {
        Select(control, end.otherEnd, place);
    } else if (end.place > end.otherEnd || place == end.otherEnd) {
        Select(control, end.otherEnd, end.otherEnd);
    } else {
        StepByRows(control, end, place, lParam);
    }
}

static bool IsBefore(const MovedEnd& end, LONG place, WPARAM key) {
    return end.hasMoved && (key == VK_RIGHT ? end.place < place : end.place > place);
}

static void StepTo(const CaretControl& control, MovedEnd& end, LONG place, int mostSteps, WPARAM key, LPARAM lParam) {
    for (int steps = 0; steps < mostSteps && IsBefore(end, place, key); ++steps) end = StepBy(control, key, lParam);
}

static constexpr int kFewSteps = 30;

// The control shows and tells nothing of it, which would take most of the time.
static void JumpTo(const CaretControl& control, MovedEnd& end, LONG place, WPARAM key, LPARAM lParam) {
    if (!IsBefore(end, place, key)) return;
    const LRESULT events = SendMessageA(control.window, EM_SETEVENTMASK, 0, ENM_NONE);
    WithoutRedraw(control.window, [&] {
        while (IsBefore(end, place, key)) {
            GoTowards(control, end, place, lParam);
            end = StepBy(control, key, lParam);
            StepTo(control, end, place, kFewSteps, key, lParam);
        }
    });
    SendMessageA(control.window, EM_SETEVENTMASK, 0, events);
}

// Steps up to `stop`. In a long word only the first and the last steps are shown.
static void StepToStop(const CaretControl& control, MovedEnd end, LONG stop, WPARAM key, LPARAM lParam) {
    static constexpr int kLastSteps = 3;
    StepTo(control, end, stop, kFewSteps, key, lParam);
    JumpTo(control, end, key == VK_RIGHT ? stop - kLastSteps : stop + kLastSteps, key, lParam);
    StepTo(control, end, stop, kFewSteps, key, lParam);
}

// Ctrl with an arrow key. Wine's control counts the places to the next word wrong, so that the caret is somewhere else
// than it says, and behind the last word it ends the program. So the arrow is passed without Ctrl until the caret is
// there.
static void MoveByWord(const CaretControl& control, WPARAM key, LPARAM lParam) {
    std::array<BYTE, 256> keys{};
    GetKeyboardState(keys.data());
    std::array<BYTE, 256> lifted = keys;
    lifted[VK_CONTROL] = lifted[VK_LCONTROL] = lifted[VK_RCONTROL] = 0;
    SetKeyboardState(lifted.data());
    const MovedEnd first = StepBy(control, key, lParam);
    const auto place = static_cast<std::size_t>(first.place);
    const std::u16string text = PlainText(control.window);
    const std::size_t stop = key == VK_RIGHT ? WordStopFrom(text, place) : WordStopUpTo(text, place);
    StepToStop(control, first, static_cast<LONG>(stop), key, lParam);
    SetKeyboardState(keys.data());
}

LRESULT PressCaretKey(const CaretControl& control, WPARAM key, LPARAM lParam) {
    if (!IsKeyByWord(key)) return PassKey(control, key, lParam);
    MoveByWord(control, key, lParam);
    return 0;
}
