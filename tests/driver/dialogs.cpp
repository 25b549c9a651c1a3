// Dialogs and message boxes.

#include <algorithm>

#include "tests/driver/driver.h"
#include "tests/driver/remote_memory.h"

static constexpr char kDialogClass[] = "#32770";

static HWND FindDialog(const Program& program, std::string_view title) {
    for (const HWND window : TopLevelWindows(program))
        if (ClassOf(window) == kDialogClass && TextOf(window) == title) return window;
    return nullptr;
}

bool HasDialog(const Program& program) {
    const std::vector<HWND> windows = TopLevelWindows(program);
    return std::any_of(windows.begin(), windows.end(), [](HWND window) { return ClassOf(window) == kDialogClass; });
}

HWND WaitForDialog(const Program& program, std::string_view title) {
    HWND dialog = nullptr;
    WaitUntil(program, "the dialog \"" + std::string(title) + "\"",
              [&] { return (dialog = FindDialog(program, title)) != nullptr; });
    WaitUntil(program, "the dialog \"" + std::string(title) + "\" to take the keyboard", [&] {
        const HWND focus = FocusOf(program);
        return focus == dialog || IsChild(dialog, focus);
    });
    if (program.probe) Settle(program);
    return dialog;
}

void WaitForNoDialog(const Program& program) {
    WaitUntil(program, "all dialogs to be closed", [&] { return !HasDialog(program); });
    Settle(program);
}

void CloseWithEsc(const Program& program) {
    Press(program, "Esc");
    WaitForNoDialog(program);
}

std::string MessageText(HWND messageBox) {
    for (const HWND child : ChildrenOf(messageBox))
        if (ClassOf(child) == "Static" && !TextOf(child).empty()) return TextOf(child);
    return "";
}

static bool ShowsIcon(HWND window) {
    return ClassOf(window) == "Static" && (GetWindowLongPtrA(window, GWL_STYLE) & SS_TYPEMASK) == SS_ICON &&
           SendMessageA(window, STM_GETICON, 0, 0) != 0 && IsWindowVisible(window);
}

// The handle is of use in the program alone, so the system's icons are told apart by what they look like.
static std::string NameOfIcon(HWND control) {
    static const struct {
        const char* name;
        LPSTR icon;
    } kIcons[] = {{"stop", IDI_HAND},
                  {"question", IDI_QUESTION},
                  {"exclamation", IDI_EXCLAMATION},
                  {"information", IDI_ASTERISK}};
    const Picture seen = PictureOfWindow(control);
    for (const auto& [name, icon] : kIcons) {
        const Picture own = PictureOfIcon(LoadIconA(nullptr, icon), seen.width, seen.height, ColorAt(seen, 0, 0));
        if (own.pixels == seen.pixels) return name;
    }
    return "one of its own";
}

std::string IconOf(HWND messageBox) {
    for (const HWND child : ChildrenOf(messageBox))
        if (ShowsIcon(child)) return NameOfIcon(child);
    return "none";
}

static bool IsPushButton(HWND window) {
    const LONG_PTR type = GetWindowLongPtrA(window, GWL_STYLE) & BS_TYPEMASK;
    return ClassOf(window) == "Button" && (type == BS_PUSHBUTTON || type == BS_DEFPUSHBUTTON);
}

std::vector<std::string> ButtonsOf(HWND dialog) {
    std::vector<std::string> texts;
    for (const HWND child : ChildrenOf(dialog))
        if (IsPushButton(child) && IsWindowVisible(child)) texts.push_back(TextOf(child));
    return texts;
}

bool IsChecked(HWND dialog, int id) {
    return SendDlgItemMessageA(dialog, id, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

std::vector<int> TabOrder(const Program& program, HWND dialog) {
    const auto focusedControl = [&] {
        HWND control = FocusOf(program);
        while (control != nullptr && GetParent(control) != dialog)
            control = GetParent(control);  // the edit of a combo box
        return GetDlgCtrlID(control);
    };
    std::vector<int> order{focusedControl()};
    const std::size_t mostControls = ChildrenOf(dialog).size();
    while (order.size() <= mostControls) {
        Press(program, "Tab");
        const int id = focusedControl();
        if (id == order.front()) return order;
        order.push_back(id);
    }
    Fail(&program, "Tab never comes back to the first control");
}
