#include "app/toolbar_win32.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "app/command_facts.h"
#include "app/command_table_win32.h"
#include "app/frame_win32.h"
#include "app/readable_pictures.h"
#include "app/toolbar_rows.h"
#include "resources/ids.h"
#include "scripture/scripture_win32.h"
#include "win32/dpi.h"
#include "win32/panes.h"
#include "win32/popup_menu.h"

static TBBUTTON ButtonOf(const Command& command, unsigned facts) {
    TBBUTTON button{};
    button.iBitmap = command.button.picture;
    button.idCommand = command.id;
    button.fsState = ButtonState(command, facts);
    button.fsStyle = command.tickedBy ? TBSTYLE_CHECK : TBSTYLE_BUTTON;
    button.iString = reinterpret_cast<INT_PTR>(command.tip.text);
    return button;
}

static constexpr int kSeparatorWidth = 8;  // the control's own at 96 dpi

// A separator comes first, to keep the first button away from the frame's edge.
static std::vector<TBBUTTON> Buttons(HWND toolbar) {
    TBBUTTON separator{};
    separator.iBitmap = Scaled(toolbar, kSeparatorWidth);
    separator.fsStyle = TBSTYLE_SEP;
    std::vector<TBBUTTON> buttons;
    ButtonGroup group = ButtonGroup::kNone;
    for (const Command& command : Commands()) {
        if (command.button.group == ButtonGroup::kNone) continue;
        if (command.button.group != group) buttons.push_back(separator);
        group = command.button.group;
        buttons.push_back(ButtonOf(command, CurrentFacts()));
    }
    for (const std::size_t end : theFrame.toolbarRows) buttons[end].fsState |= TBSTATE_WRAP;
    return buttons;
}

namespace {

struct PictureStrip {
    int size;  // of each picture, pixels
    int id;
};

}  // namespace

static constexpr PictureStrip kStrips[] = {
    {16, IDB_TOOLBAR},    {20, IDB_TOOLBAR_20}, {24, IDB_TOOLBAR_24}, {28, IDB_TOOLBAR_28},
    {32, IDB_TOOLBAR_32}, {40, IDB_TOOLBAR_40}, {48, IDB_TOOLBAR_48},
};

// The largest pictures that are not larger than the scaling of the toolbar's screen asks for: pictures that are
// stretched are blurred.
static const PictureStrip& StripFor(HWND toolbar) {
    const int wanted = Scaled(toolbar, kStrips[0].size);
    const PictureStrip* chosen = kStrips;
    for (const PictureStrip& strip : kStrips)
        if (strip.size <= wanted) chosen = &strip;
    return *chosen;
}

static HIMAGELIST LoadPictures(const PictureStrip& strip) {
    const OwnedBitmap bitmap(static_cast<HBITMAP>(
        LoadImageA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(strip.id), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION)));
    BITMAP shape{};
    GetObjectA(bitmap.get(), sizeof shape, &shape);
    const int count = static_cast<int>(shape.bmWidth) / strip.size;
    const auto pixels = static_cast<std::size_t>(shape.bmWidth) * static_cast<std::size_t>(shape.bmHeight);
    FitToFace({static_cast<std::uint32_t*>(shape.bmBits), pixels}, GetSysColor(COLOR_BTNFACE));
    const HIMAGELIST pictures = ImageList_Create(strip.size, strip.size, ILC_COLOR32, count, 0);
    ImageList_Add(pictures, bitmap.get(), nullptr);
    return pictures;
}

static void ScaleToolTips(HWND toolbar) {
    const auto tips = reinterpret_cast<HWND>(SendMessageA(toolbar, TB_GETTOOLTIPS, 0, 0));
    if (tips) SendMessageA(tips, WM_SETFONT, reinterpret_cast<WPARAM>(StatusFont(toolbar)), FALSE);
}

HWND CreateToolbar(HWND frame) {
    const HWND toolbar = CreateChild(frame, TOOLBARCLASSNAMEA, "Toolbar",
                                     WS_VISIBLE | WS_CLIPSIBLINGS | TBSTYLE_TOOLTIPS | TBSTYLE_FLAT, 0, IDC_TOOLBAR);
    if (!toolbar) return nullptr;
    theFrame.toolbarPictures.reset(LoadPictures(StripFor(toolbar)));
    std::vector<TBBUTTON> buttons = Buttons(toolbar);
    SendMessageA(toolbar, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    SendMessageA(toolbar, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(theFrame.toolbarPictures.get()));
    SendMessageA(toolbar, TB_SETMAXTEXTROWS, 0, 0);  // the buttons' texts are not drawn
    SendMessageA(toolbar, TB_ADDBUTTONSA, buttons.size(), reinterpret_cast<LPARAM>(buttons.data()));
    SendMessageA(toolbar, TB_AUTOSIZE, 0, 0);
    ScaleToolTips(toolbar);
    return toolbar;
}

void RecolorToolbar() {
    OwnedImageList pictures(LoadPictures(StripFor(theFrame.toolbar)));
    SendMessageA(theFrame.toolbar, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(pictures.get()));
    theFrame.toolbarPictures = std::move(pictures);
}

// The control never makes its buttons smaller again.
void RecreateToolbar() {
    const HWND above = GetWindow(theFrame.toolbar, GW_HWNDPREV);
    DestroyWindow(theFrame.toolbar);
    theFrame.toolbar = CreateToolbar(theFrame.window);
    SetWindowPos(theFrame.toolbar, above ? above : HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

static std::vector<ToolbarItem> ItemsOf(HWND toolbar) {
    std::vector<ToolbarItem> items(static_cast<std::size_t>(SendMessageA(toolbar, TB_BUTTONCOUNT, 0, 0)));
    for (std::size_t at = 0; at < items.size(); ++at) {
        TBBUTTON button{};
        RECT place{};
        SendMessageA(toolbar, TB_GETBUTTON, at, reinterpret_cast<LPARAM>(&button));
        SendMessageA(toolbar, TB_GETITEMRECT, at, reinterpret_cast<LPARAM>(&place));
        items[at] = {static_cast<int>(place.right - place.left), (button.fsStyle & TBSTYLE_SEP) != 0};
    }
    return items;
}

// The rows may take a quarter of the frame's height from the panes. In a lower frame, the last buttons are beyond its
// edge.
static std::size_t MostRows(HWND toolbar, int height) {
    static constexpr int kShare = 4;
    const int row = HIWORD(SendMessageA(toolbar, TB_GETBUTTONSIZE, 0, 0));
    return static_cast<std::size_t>(std::max(height / (kShare * std::max(row, 1)), 1));
}

// The control could divide the row itself (TBSTYLE_WRAPABLE), but then paints all buttons whenever the frame is sized,
// and Wine gives it the height of a row too many.
void DivideToolbar() {
    RECT client{};
    GetClientRect(theFrame.window, &client);
    std::vector<std::size_t> rows = RowEnds(ItemsOf(theFrame.toolbar), static_cast<int>(client.right));
    rows.resize(std::min(rows.size(), MostRows(theFrame.toolbar, static_cast<int>(client.bottom)) - 1));
    if (rows == theFrame.toolbarRows) return;
    theFrame.toolbarRows = std::move(rows);
    RecreateToolbar();
}

bool IsGreyedButton(int command) {
    const auto state = SendMessageA(theFrame.toolbar, TB_GETSTATE, static_cast<WPARAM>(command), 0);
    return state != -1 && (state & TBSTATE_INDETERMINATE) != 0;
}

static std::string TextOf(const ToolTip& tip) {
    const int verse = tip.verse ? tip.verse() : kNoVerse;
    if (verse == kNoVerse) return tip.text;
    return tip.beforeVerse + ReferenceText(theScripture.records, verse, BookForm::kAbbreviation);
}

static std::string ToolTipOf(int id) {
    const Command* command = FindCommand(id);
    return command ? TipWithKey(TextOf(command->tip), KeyInMenu(theFrame.window, id)) : "";
}

void AnswerButtonTip(NMTBGETINFOTIPA* tip) {
    lstrcpynA(tip->pszText, ToolTipOf(tip->iItem).c_str(), tip->cchTextMax);
}

void AnswerToolTip(NMTTDISPINFOA* tip) {
    lstrcpynA(tip->szText, ToolTipOf(static_cast<int>(tip->hdr.idFrom)).c_str(), sizeof tip->szText);
    tip->lpszText = tip->szText;
}
