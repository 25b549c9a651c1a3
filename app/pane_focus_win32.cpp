#include "app/pane_focus_win32.h"

#include <algorithm>

#include "app/frame_win32.h"
#include "passage/passage_window.h"
#include "resources/ids.h"
#include "verselist/verse_list_window.h"
#include "win32/controls.h"

namespace {

struct KeyOfFrame {
    UINT key;
    bool control;
    int command;  // in the Passage; 0: the key itself
    WORD scroll;  // in a control of the system, whose own keys would mark lines or move a caret
};

}  // namespace

static constexpr KeyOfFrame kKeys[] = {
    {VK_UP, false, 0, SB_LINEUP},
    {VK_DOWN, false, 0, SB_LINEDOWN},
    {VK_PRIOR, false, 0, SB_PAGEUP},
    {VK_NEXT, false, 0, SB_PAGEDOWN},
    {VK_PRIOR, true, IDM_PREVIOUS_CHAPTER, SB_PAGEUP},
    {VK_NEXT, true, IDM_NEXT_CHAPTER, SB_PAGEDOWN},
    {VK_HOME, true, IDM_PREVIOUS_BOOK, SB_TOP},
    {VK_END, true, IDM_NEXT_BOOK, SB_BOTTOM},
};

static const KeyOfFrame* FindKey(WPARAM key) {
    const bool control = IsControlDown();
    const auto found =
        std::ranges::find_if(kKeys, [=](const KeyOfFrame& row) { return row.key == key && row.control == control; });
    return found != std::end(kKeys) ? found : nullptr;
}

bool IsKeyOfFrame(const MSG& message) {
    return message.message == WM_KEYDOWN && message.hwnd == theFrame.window && FindKey(message.wParam);
}

void PassKeyToPane(UINT key) {
    const KeyOfFrame* row = FindKey(key);
    const HWND pane = FirstPane();
    if (!row || !pane) return;
    if (pane == thePassage.window && row->command != 0) return SendCommand(theFrame.window, row->command);
    const bool reads = pane == thePassage.window || pane == theVerseList.window;
    if (reads) {
        SendMessageA(pane, WM_KEYDOWN, key, 0);
    } else {
        SendMessageA(pane, WM_VSCROLL, row->scroll, 0);
    }
}

// A pane that does not use the message sends it back up to the frame.
void PassWheelToPane(WPARAM wParam, LPARAM lParam) {
    static bool passing = false;
    const HWND pane = FirstPane();
    if (passing || !pane) return;
    passing = true;
    SendMessageA(pane, WM_MOUSEWHEEL, wParam, lParam);
    passing = false;
}
