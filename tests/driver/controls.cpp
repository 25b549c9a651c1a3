// Reading common controls, list boxes, rich edits and the clipboard.

#include <windows.h>

#include <commctrl.h>
#include <richedit.h>

#include <cstring>

#include "resources/ids.h"
#include "tests/driver/driver.h"
#include "tests/driver/remote_memory.h"

static HWND StatusBar(const Program& program) {
    return Child(program.frame, {IDC_STATUS_BAR});
}
static HWND Toolbar(const Program& program) {
    return Child(program.frame, {IDC_TOOLBAR});
}

// ---- Status bar -----------------------------------------------------------------------------------------------------

std::string StatusPart(const Program& program, int part) {
    Settle(program);
    char text[1024] = "";
    AskAbout(program, StatusBar(program), SB_GETTEXTA, static_cast<WPARAM>(part), text);
    return text;
}

std::vector<int> StatusEdges(const Program& program) {
    int edges[64] = {};
    const LRESULT count = AskAbout(program, StatusBar(program), SB_GETPARTS, std::size(edges), edges);
    return {edges, edges + count};
}

// ---- Toolbar --------------------------------------------------------------------------------------------------------

std::vector<ToolButton> ToolButtons(const Program& program) {
    const HWND toolbar = Toolbar(program);
    std::vector<ToolButton> buttons;
    const LRESULT count = Ask(program, toolbar, TB_BUTTONCOUNT);
    for (LRESULT index = 0; index < count; ++index) {
        TBBUTTON button{};
        AskAbout(program, toolbar, TB_GETBUTTON, static_cast<WPARAM>(index), button);
        buttons.push_back({button.idCommand, button.iBitmap, button.fsState, button.fsStyle});
    }
    return buttons;
}

BYTE ToolState(const Program& program, int command) {
    Settle(program);
    const LRESULT state = Ask(program, Toolbar(program), TB_GETSTATE, static_cast<WPARAM>(command));
    if (state < 0) Fail(&program, "no toolbar button has the command " + std::to_string(command));
    return static_cast<BYTE>(state);
}

RECT ToolRect(const Program& program, int command) {
    RECT rect{};
    AskAbout(program, Toolbar(program), TB_GETRECT, static_cast<WPARAM>(command), rect);
    return rect;
}

static HWND ShownToolTip(const Program& program) {
    for (const HWND window : TopLevelWindows(program))
        if (ClassOf(window) == TOOLTIPS_CLASSA) return window;
    return nullptr;
}

std::string ToolTip(const Program& program, int command) {
    ReleaseMouse(program);
    WaitUntil(program, "the last tool tip to go", [&] { return ShownToolTip(program) == nullptr; });
    const RECT button = ToolRect(program, command);
    PointAt(Toolbar(program), {(button.left + button.right) / 2, (button.top + button.bottom) / 2});
    WaitUntil(program, "the tool tip of command " + std::to_string(command),
              [&] { return ShownToolTip(program) != nullptr; });
    return TextOf(ShownToolTip(program));
}

// ---- Tabs -----------------------------------------------------------------------------------------------------------

std::vector<std::string> TabLabels(const Program& program, HWND tabs) {
    std::vector<std::string> labels;
    const LRESULT count = Ask(program, tabs, TCM_GETITEMCOUNT);
    for (LRESULT index = 0; index < count; ++index) {
        char empty[300] = "";
        const RemoteMemory text(program, sizeof empty);
        TCITEMA item{};
        item.mask = TCIF_TEXT;
        item.pszText = static_cast<char*>(text.address);
        item.cchTextMax = sizeof empty;
        AskAbout(program, tabs, TCM_GETITEMA, static_cast<WPARAM>(index), item);
        ReadRemote(text, empty, sizeof empty);
        labels.emplace_back(empty);
    }
    return labels;
}

int SelectedTab(HWND tabs) {
    return static_cast<int>(SendMessageA(tabs, TCM_GETCURSEL, 0, 0));
}

RECT TabDisplayRect(const Program& program, HWND tabs, const RECT& whole) {
    RECT rect = whole;
    AskAbout(program, tabs, TCM_ADJUSTRECT, FALSE, rect);
    return rect;
}

void ClickTab(const Program& program, HWND tabs, int index) {
    RECT rect{};
    AskAbout(program, tabs, TCM_GETITEMRECT, static_cast<WPARAM>(index), rect);
    Click(program, tabs, {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2});
}

// ---- Lists ----------------------------------------------------------------------------------------------------------

// Wine passes these messages between processes completely only in their wide form.
static std::string Narrow(const std::wstring& wide) {
    std::string text(wide.size() * 2, '\0');
    const int length = WideCharToMultiByte(CP_ACP, 0, wide.data(), static_cast<int>(wide.size()), text.data(),
                                           static_cast<int>(text.size()), nullptr, nullptr);
    text.resize(static_cast<std::size_t>(length));
    return text;
}

static std::vector<std::string> Strings(HWND control, UINT countMessage, UINT lengthMessage, UINT textMessage) {
    std::vector<std::string> strings;
    const LRESULT count = SendMessageW(control, countMessage, 0, 0);
    for (LRESULT index = 0; index < count; ++index) {
        const auto at = static_cast<WPARAM>(index);
        std::wstring text(static_cast<std::size_t>(SendMessageW(control, lengthMessage, at, 0)) + 1, L'\0');
        const LRESULT length = SendMessageW(control, textMessage, at, reinterpret_cast<LPARAM>(text.data()));
        text.resize(static_cast<std::size_t>(length));
        strings.push_back(Narrow(text));
    }
    return strings;
}

std::vector<std::string> ListStrings(HWND listBox) {
    return Strings(listBox, LB_GETCOUNT, LB_GETTEXTLEN, LB_GETTEXT);
}

std::vector<std::string> ComboStrings(HWND comboBox) {
    return Strings(comboBox, CB_GETCOUNT, CB_GETLBTEXTLEN, CB_GETLBTEXT);
}

// ---- Rich edits and the clipboard -----------------------------------------------------------------------------------

TextSelection RichSelection(const Program& program, HWND richEdit) {
    CHARRANGE range{};
    AskAbout(program, richEdit, EM_EXGETSEL, 0, range);
    return {static_cast<int>(range.cpMin), static_cast<int>(range.cpMax)};
}

void SelectRich(const Program& program, HWND richEdit, TextSelection selection) {
    CHARRANGE range{selection.start, selection.end};
    AskAbout(program, richEdit, EM_EXSETSEL, 0, range);
    Settle(program);
}

DWORD SelectedEffects(const Program& program, HWND richEdit) {
    CHARFORMATA format{};
    format.cbSize = sizeof format;
    AskAbout(program, richEdit, EM_GETCHARFORMAT, SCF_SELECTION, format);
    return format.dwEffects;
}

std::string ClipboardText() {
    if (!OpenClipboard(nullptr)) Fail(nullptr, "the clipboard is held by another");
    std::string text;
    if (const HANDLE block = GetClipboardData(CF_TEXT)) {
        text = static_cast<const char*>(GlobalLock(block));
        GlobalUnlock(block);
    }
    CloseClipboard();
    return text;
}

static void PutOnClipboard(UINT format, const void* text, std::size_t size) {
    if (!OpenClipboard(nullptr)) Fail(nullptr, "the clipboard is held by another");
    EmptyClipboard();
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, size);
    std::memcpy(GlobalLock(block), text, size);
    GlobalUnlock(block);
    SetClipboardData(format, block);
    CloseClipboard();
}

void SetClipboardText(std::string_view text) {
    PutOnClipboard(CF_TEXT, std::string(text).c_str(), text.size() + 1);
}

void SetClipboardText(std::wstring_view text) {
    PutOnClipboard(CF_UNICODETEXT, std::wstring(text).c_str(), (text.size() + 1) * sizeof text[0]);
}
