#include "app/toolbar_win32.h"

#include <string>
#include <vector>

#include "app/command_facts.h"
#include "app/command_table_win32.h"
#include "app/frame_win32.h"
#include "resources/ids.h"
#include "scripture/scripture_win32.h"
#include "win32/panes.h"
#include "win32/popup_menu.h"
#include "win32/screen.h"

static TBBUTTON ButtonOf(const Command& command, unsigned facts) {
    TBBUTTON button{};
    button.iBitmap = command.button.picture;
    button.idCommand = command.id;
    button.fsState = ButtonState(command, facts);
    button.fsStyle = command.tickedBy ? TBSTYLE_CHECK : TBSTYLE_BUTTON;
    return button;
}

// A separator comes first, to keep the first button away from the frame's edge.
static std::vector<TBBUTTON> Buttons() {
    TBBUTTON separator{};
    separator.fsStyle = TBSTYLE_SEP;
    std::vector<TBBUTTON> buttons;
    ButtonGroup group = ButtonGroup::kNone;
    for (const Command& command : Commands()) {
        if (command.button.group == ButtonGroup::kNone) continue;
        if (command.button.group != group) buttons.push_back(separator);
        group = command.button.group;
        buttons.push_back(ButtonOf(command, CurrentFacts()));
    }
    return buttons;
}

// The strip of pictures for the scaling of this screen: 16, 24 or 32 pixels wide each.
static HIMAGELIST LoadPictures() {
    const int wanted = Scaled(16);
    const int size = wanted < 24 ? 16 : wanted < 32 ? 24 : 32;
    const int strip = IDB_TOOLBAR + (size - 16) / 8;
    const OwnedBitmap bitmap(static_cast<HBITMAP>(
        LoadImageA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(strip), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION)));
    BITMAP shape{};
    GetObjectA(bitmap.get(), sizeof shape, &shape);
    const HIMAGELIST pictures = ImageList_Create(size, size, ILC_COLOR32, static_cast<int>(shape.bmWidth) / size, 0);
    ImageList_Add(pictures, bitmap.get(), nullptr);
    return pictures;
}

HWND CreateToolbar(HWND frame) {
    const HWND toolbar = CreateChild(frame, TOOLBARCLASSNAMEA, "",
                                     WS_VISIBLE | WS_CLIPSIBLINGS | TBSTYLE_TOOLTIPS | TBSTYLE_FLAT, 0, IDC_TOOLBAR);
    if (!toolbar) return nullptr;
    theFrame.toolbarPictures.reset(LoadPictures());
    std::vector<TBBUTTON> buttons = Buttons();
    SendMessageA(toolbar, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    SendMessageA(toolbar, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(theFrame.toolbarPictures.get()));
    SendMessageA(toolbar, TB_ADDBUTTONSA, buttons.size(), reinterpret_cast<LPARAM>(buttons.data()));
    SendMessageA(toolbar, TB_AUTOSIZE, 0, 0);
    return toolbar;
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

void AnswerToolTip(NMTTDISPINFOA* tip) {
    lstrcpynA(tip->szText, ToolTipOf(static_cast<int>(tip->hdr.idFrom)).c_str(), sizeof tip->szText);
    tip->lpszText = tip->szText;
}
