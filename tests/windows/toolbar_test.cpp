// The toolbar: its buttons, their commands and their tool tips.

#include <algorithm>
#include <cstring>

#include <windows.h>

#include <commctrl.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/driver/driver.h"
#include "tests/driver/remote_memory.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/search_steps.h"
#include "tests/windows/system_scaling.h"

namespace {

enum class Begins { kSeparator, kGreyed, kEnabled, kPressed, kAsItsOwner };

struct ToolbarRow {
    int command;
    int image;
    Begins begins;
};

}  // namespace

static constexpr ToolbarRow kGap{0, 0, Begins::kSeparator};
static constexpr ToolbarRow kToolbar[] = {
    kGap,
    {IDM_CUT, 0, Begins::kGreyed},
    {IDM_COPY, 1, Begins::kGreyed},
    {IDM_PASTE, 2, Begins::kGreyed},
    kGap,
    {IDM_COPY_VERSE, 6, Begins::kAsItsOwner},
    {IDM_COPY_RANGE, 7, Begins::kAsItsOwner},
    {IDM_COPY_VERSE_LIST, 8, Begins::kGreyed},
    {IDM_COPY_REFERENCES, 9, Begins::kGreyed},
    kGap,
    {IDM_WORD_SEARCH, 3, Begins::kEnabled},
    {IDM_PHRASE_SEARCH, 4, Begins::kEnabled},
    {IDM_WORD_LIST_SEARCH, 5, Begins::kEnabled},
    {IDM_SEARCH_NOTES, 18, Begins::kAsItsOwner},
    kGap,
    {IDM_GOTO_VERSE, 12, Begins::kEnabled},
    {IDM_GOTO_NOTE, 19, Begins::kAsItsOwner},
    kGap,
    {IDM_CONTEXT, 13, Begins::kGreyed},
    {IDM_NOTE_FOR_LIST, 21, Begins::kGreyed},
    {IDM_NOTE_FOR_PASSAGE, 22, Begins::kEnabled},
    {IDM_VERSE_FOR_NOTE, 23, Begins::kEnabled},
    kGap,
    {IDM_EDIT_NOTE, 20, Begins::kAsItsOwner},
    kGap,
    {IDM_VIEW_LIST, 14, Begins::kPressed},
    {IDM_VIEW_PASSAGE, 15, Begins::kPressed},
    {IDM_VIEW_NOTES, 16, Begins::kPressed},
    kGap,
    {IDM_HELP_TOPICS, 17, Begins::kEnabled},
};

static BYTE StateOf(const Program& program, const ToolbarRow& row) {
    constexpr BYTE kGreyedState = TBSTATE_ENABLED | TBSTATE_INDETERMINATE;
    switch (row.begins) {
        case Begins::kGreyed: return kGreyedState;
        case Begins::kEnabled: return TBSTATE_ENABLED;
        case Begins::kPressed: return TBSTATE_ENABLED | TBSTATE_CHECKED;
        case Begins::kAsItsOwner: return IsGreyed(program, row.command) ? kGreyedState : BYTE{TBSTATE_ENABLED};
        case Begins::kSeparator: break;
    }
    return 0;
}

TEST(Toolbar, HasThirtyEntries) {
    const Program program = StartProgram(FolderWithScripture());
    const std::vector<ToolButton> buttons = ToolButtons(program);
    ASSERT_EQ(buttons.size(), std::size(kToolbar));
    for (std::size_t at = 0; at < buttons.size(); ++at) {
        SCOPED_TRACE(at + 1);
        const ToolbarRow& row = kToolbar[at];
        EXPECT_EQ(buttons[at].command, row.command);
        const bool isGap = row.begins == Begins::kSeparator;
        EXPECT_EQ((buttons[at].style & TBSTYLE_SEP) != 0, isGap);
        if (isGap) continue;
        EXPECT_EQ(buttons[at].image, row.image);
        EXPECT_EQ((buttons[at].style & TBSTYLE_CHECK) != 0, row.begins == Begins::kPressed);
        EXPECT_EQ(buttons[at].state, StateOf(program, row));
    }
}

// Text of a button, which a screen reader tells.
static std::string TextOfButton(const Program& program, int command) {
    char text[100] = "";
    const RemoteMemory room(program, sizeof text);
    const HWND toolbar = Child(program.frame, {IDC_TOOLBAR});
    Ask(program, toolbar, TB_GETBUTTONTEXTA, static_cast<WPARAM>(command), reinterpret_cast<LPARAM>(room.address));
    ReadRemote(room, text, sizeof text);
    return text;
}

static void SetTextOfButton(const Program& program, int command, const char* text) {
    const RemoteMemory room(program, 100);
    WriteRemote(room, text, std::strlen(text) + 1);
    TBBUTTONINFOA info{};
    info.cbSize = sizeof info;
    info.dwMask = TBIF_TEXT;
    info.pszText = static_cast<char*>(room.address);
    AskAbout(program, Child(program.frame, {IDC_TOOLBAR}), TB_SETBUTTONINFOA, static_cast<WPARAM>(command), info);
}

TEST(Toolbar, HasTextsThatAreNotSeen) {
    const Program program = StartProgram(FolderWithScripture());
    const HWND toolbar = Child(program.frame, {IDC_TOOLBAR});
    EXPECT_EQ(TextOfButton(program, IDM_CUT), "Cut");
    EXPECT_EQ(TextOfButton(program, IDM_CONTEXT), "Read Context of Verse in Verse List");
    EXPECT_EQ(TextOfButton(program, IDM_NOTE_FOR_PASSAGE), "Note for Verse in Passage");
    EXPECT_EQ(Ask(program, toolbar, TB_GETBUTTONSIZE), MAKELPARAM(23, 22)) << "that of a picture";
    const Picture before = PictureOfWindow(toolbar);
    for (const ToolbarRow& row : kToolbar) {
        if (row.command == 0) continue;
        EXPECT_GE(TextOfButton(program, row.command).size(), 3u) << row.command;
        SetTextOfButton(program, row.command, "");
    }
    EXPECT_EQ(TextOfButton(program, IDM_CUT), "");
    RedrawWindow(toolbar, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE);
    Settle(program);
    const RECT differing = DifferingArea(before, PictureOfWindow(toolbar));
    EXPECT_TRUE(IsRectEmpty(&differing));
}

static void ClickButton(const Program& program, int command) {
    const RECT button = ToolRect(program, command);
    Click(program, Child(program.frame, {IDC_TOOLBAR}),
          {(button.left + button.right) / 2, (button.top + button.bottom) / 2});
}

TEST(Toolbar, ClickRunsTheCommand) {
    Program program = StartProgram(FolderWithScripture());
    ClickButton(program, IDM_VIEW_LIST);
    EXPECT_FALSE(IsShown(Child(program.frame, {IDC_LIST_TABS})));
    EXPECT_FALSE(IsTicked(program, IDM_VIEW_LIST));
    EXPECT_EQ(ToolState(program, IDM_VIEW_LIST), TBSTATE_ENABLED);
    ClickButton(program, IDM_VIEW_LIST);
    EXPECT_TRUE(IsShown(Child(program.frame, {IDC_LIST_TABS})));
    EXPECT_EQ(ToolState(program, IDM_VIEW_LIST), TBSTATE_ENABLED | TBSTATE_CHECKED);
    SearchFor(program, {"Melchizedek"});
    SetClipboardText("before");
    ClickButton(program, IDM_COPY_REFERENCES);
    EXPECT_EQ(ClipboardText(), "# Ge 14:18 Ps 110:4") << "a button that was grey before";
    ClickButton(program, IDM_GOTO_VERSE);
    WaitForDialog(program, "Go To Verse");
}

// Clicks every button that is grey now, and returns how many there are.
static int ClickGreyButtons(const Program& program) {
    const std::string note = StatusPart(program, 2), top = StatusPart(program, 3);
    int clicked = 0;
    for (const ToolbarRow& row : kToolbar) {
        if (row.command == 0 || !(ToolState(program, row.command) & TBSTATE_INDETERMINATE)) continue;
        SetClipboardText("before");
        const HWND focus = FocusOf(program);
        ClickButton(program, row.command);
        ++clicked;
        EXPECT_FALSE(HasDialog(program)) << row.command;
        EXPECT_EQ(ClipboardText(), "before") << row.command;
        EXPECT_EQ(ToolState(program, row.command), TBSTATE_ENABLED | TBSTATE_INDETERMINATE) << row.command;
        EXPECT_EQ(FocusOf(program), focus) << row.command;
        EXPECT_EQ(StatusPart(program, 2), note) << row.command;
        EXPECT_EQ(StatusPart(program, 3), top) << row.command;
    }
    return clicked;
}

// Those that are not wholly inside the toolbar, or have the place of another one.
static std::vector<int> ButtonsOutOfReach(const Program& program) {
    const RECT client = ClientRectOf(Child(program.frame, {IDC_TOOLBAR}));
    std::vector<int> commands;
    std::vector<RECT> places;
    for (const ToolbarRow& row : kToolbar) {
        if (row.command == 0) continue;
        const RECT place = ToolRect(program, row.command);
        const bool isInside = place.left >= 0 && place.top >= 0 && place.right <= client.right &&
                              place.bottom <= client.bottom && !IsRectEmpty(&place);
        const bool isFree = std::ranges::none_of(places, [&](const RECT& other) {
            RECT common{};
            return IntersectRect(&common, &place, &other) != 0;
        });
        if (!isInside || !isFree) commands.push_back(row.command);
        places.push_back(place);
    }
    return commands;
}

static void ExpectPanesBelowToolbar(const Program& program, int gap) {
    const RECT toolbar = RectIn(Child(program.frame, {IDC_TOOLBAR}), program.frame);
    for (const int tabs : {IDC_LIST_TABS, IDC_PASSAGE_TABS})
        EXPECT_EQ(RectIn(Child(program.frame, {tabs}), program.frame).top, toolbar.bottom + gap);
}

static LONG HeightOfToolbar(const Program& program) {
    return ClientRectOf(Child(program.frame, {IDC_TOOLBAR})).bottom;
}

// A frame that is narrower than the row of buttons has several rows of them.
TEST(Toolbar, HasAllButtonsInReachInANarrowFrame) {
    for (const int dpi : {96, 192}) {
        SCOPED_TRACE(dpi);
        const SystemScaling scaling(dpi);
        const Program program = StartProgram(FolderWithScripture());
        const int gap = MulDiv(2, dpi, 96);
        PlaceFrame(program, {0, 0, 1600, 900});
        const LONG height = HeightOfToolbar(program);
        EXPECT_EQ(ToolRect(program, IDM_CUT).top, ToolRect(program, IDM_HELP_TOPICS).top) << "one row";
        for (const LONG width : {MulDiv(400, dpi, 96), MulDiv(300, dpi, 96)}) {
            PlaceFrame(program, {0, 0, width, 900});
            SavePicture(PictureOfWindow(program.frame), "toolbar-" + std::to_string(dpi) + "-" + std::to_string(width));
            EXPECT_THAT(ButtonsOutOfReach(program), testing::IsEmpty()) << width;
            ExpectPanesBelowToolbar(program, gap);
            EXPECT_GT(HeightOfToolbar(program), height);
            ClickButton(program, IDM_VIEW_NOTES);
            EXPECT_FALSE(IsShown(Child(program.frame, {IDC_NOTE_TABS})));
            ClickButton(program, IDM_VIEW_NOTES);
        }
        PlaceFrame(program, {0, 0, 1600, 900});
        EXPECT_THAT(ButtonsOutOfReach(program), testing::IsEmpty());
        EXPECT_EQ(HeightOfToolbar(program), height);
        ExpectPanesBelowToolbar(program, gap);
    }
}

// The panes are what the program is for.
TEST(Toolbar, HasOneRowInAFrameThatIsLowAsWell) {
    const Program program = StartProgram(FolderWithScripture());
    PlaceFrame(program, {0, 0, 1600, 900});
    const LONG height = HeightOfToolbar(program);
    PlaceFrame(program, {0, 0, 320, 220});
    EXPECT_EQ(HeightOfToolbar(program), height);
    ExpectPanesBelowToolbar(program, 2);
    PlaceFrame(program, {0, 0, 320, 900});
    EXPECT_GT(HeightOfToolbar(program), height);
}

TEST(Toolbar, IgnoresClicksOnGreyButtons) {
    Program program = StartProgram(FolderWithScripture());
    EXPECT_EQ(ClickGreyButtons(program), 7) << "the clipboard's three and the list's four";
    OpenNoteEditor(program);
    Type(program, "mine");
    SetClipboardText("before");
    EXPECT_GE(ClickGreyButtons(program), 10) << "of a selection, of the list, and those that wait for the editor";
    EXPECT_EQ(TextOf(NoteEditOf(program)), "mine");
}

// The tool tip that the frame supplies for a command, even if the toolbar has no button for it: adds a tool to the
// tool-tip control and asks for its text.
static std::string AnsweredTip(const Program& program, int command) {
    const HWND toolbar = Child(program.frame, {IDC_TOOLBAR});
    const auto tips = reinterpret_cast<HWND>(Ask(program, toolbar, TB_GETTOOLTIPS));
    TTTOOLINFOA tool{};
    tool.cbSize = TTTOOLINFOA_V1_SIZE;
    tool.hwnd = program.frame;
    tool.uId = static_cast<UINT_PTR>(command);
    tool.lpszText = LPSTR_TEXTCALLBACKA;
    AskAbout(program, tips, TTM_ADDTOOLA, 0, tool);
    const char empty[256] = "";
    const RemoteMemory room(program, sizeof empty);
    tool.lpszText = static_cast<char*>(room.address);
    AskAbout(program, tips, TTM_GETTEXTA, sizeof empty, tool);
    char text[sizeof empty] = "";
    ReadRemote(room, text, sizeof text);
    AskAbout(program, tips, TTM_DELTOOLA, 0, tool);
    return text;
}

namespace {

struct TipRow {
    int command;
    const char* text;
};

}  // namespace

static constexpr TipRow kTips[] = {
    {IDM_HELP_TOPICS, "Help (F1)"},
    {IDM_WORD_SEARCH, "Word(s) Search (Alt+W)"},
    {IDM_PHRASE_SEARCH, "Phrase Search (Alt+P)"},
    {IDM_CONTEXT, "Read Context of Verse in Verse List (F12)"},
    {IDM_GOTO_VERSE, "Go to a Verse (Alt+G)"},
    {IDM_WORD_LIST_SEARCH, "Word(s) Search with word list (Alt+L)"},
    {IDM_VIEW_LIST, "Show/Hide Verse List Window (F2)"},
    {IDM_VIEW_PASSAGE, "Show/Hide Passage Window (F3)"},
    {IDM_VIEW_NOTES, "Show/Hide Notes Window (F4)"},
    {IDM_COPY_VERSE, "Copy a Verse (F5)"},
    {IDM_COPY_RANGE, "Copy a Range of Verses (F6)"},
    {IDM_COPY_VERSE_LIST, "Copy the Verse List (F7)"},
    {IDM_COPY_REFERENCES, "Copy the Reference List (F8)"},
    {IDM_SAVE_RANGE, "Save a Range of verses"},
    {IDM_SAVE_VERSE_LIST, "Save the Verse List"},
    {IDM_CUT, "Cut (Ctrl+X)"},
    {IDM_COPY, "Copy (Ctrl+C)"},
    {IDM_PASTE, "Paste (Ctrl+V)"},
    {IDM_GOTO_NOTE, "Go to a Note (Alt+N)"},
    {IDM_NOTE_FOR_PASSAGE, "Note for Ge 1:1 (F10)"},
    {IDM_NOTE_FOR_LIST, "Note for Verse in Verse List (F9)"},
    {IDM_EDIT_NOTE, "Edit Current Note (Alt+E)"},
    {IDM_SEARCH_NOTES, "Search Notes (Alt+T)"},
    {IDM_VERSE_FOR_NOTE, "Read Verse for Current Note (F11)"},
};

TEST(ToolTips, ExistForTheListedCommandsOnly) {
    const Program program = StartProgram(FolderWithScripture());
    for (int command = 95; command <= 200; ++command) {
        const auto* row =
            std::find_if(std::begin(kTips), std::end(kTips), [&](const TipRow& tip) { return tip.command == command; });
        EXPECT_EQ(AnsweredTip(program, command), row == std::end(kTips) ? "" : row->text) << command;
    }
}

// The key that the menu shows for a command: what follows the tab.
static std::string KeyInMenu(const Program& program, int command) {
    const std::string text = MenuText(program, command);
    const std::size_t tab = text.find('\t');
    return tab == std::string::npos ? "" : text.substr(tab + 1);
}

TEST(ToolTips, ShowTheKeysOfTheMenu) {
    const Program program = StartProgram(FolderWithScripture());
    for (const TipRow& row : kTips) {
        const std::string key = KeyInMenu(program, row.command);
        const std::string tip = AnsweredTip(program, row.command);
        EXPECT_EQ(tip.ends_with(')'), !key.empty()) << tip;
        if (!key.empty()) {
            EXPECT_TRUE(tip.ends_with(" (" + key + ")")) << tip << " but the menu has " << key;
        }
    }
}

TEST(ToolTips, AppearUnderTheMouse) {
    const Program program = StartProgram(FolderWithScripture());
    EXPECT_EQ(ToolTip(program, IDM_WORD_SEARCH), "Word(s) Search (Alt+W)");
    EXPECT_EQ(ToolTip(program, IDM_CONTEXT), "Read Context of Verse in Verse List (F12)");
}

TEST(ToolTips, NameTheVerseThatTheCommandUses) {
    Program program = StartProgram(FolderWithScripture());
    Command(program, IDM_GOTO_BOOK + 43);
    EXPECT_EQ(AnsweredTip(program, IDM_NOTE_FOR_PASSAGE), "Note for Joh 1:1 (F10)");
    SearchFor(program, {"unsearchable"});
    EXPECT_EQ(AnsweredTip(program, IDM_CONTEXT), "Read Context of Job 5:9 (F12)");
    EXPECT_EQ(AnsweredTip(program, IDM_NOTE_FOR_LIST), "Note for Job 5:9 (F9)");
    Press(program, "Down");
    EXPECT_EQ(AnsweredTip(program, IDM_CONTEXT), "Read Context of Ps 145:3 (F12)");
    EXPECT_EQ(AnsweredTip(program, IDM_NOTE_FOR_PASSAGE), "Note for Joh 1:1 (F10)");
    SearchInVain(program, {"nowordofit"});
    Press(program, "Enter");
    WaitForNoDialog(program);
    EXPECT_EQ(AnsweredTip(program, IDM_CONTEXT), "Read Context of Verse in Verse List (F12)");
}
