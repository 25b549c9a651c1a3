// Context menus of the Passage, the Verse List and the note view: their items, how they open, and what the items do.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "resources/ids.h"
#include "tests/windows/menu_steps.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/search_steps.h"

using testing::Contains;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::SizeIs;
using testing::StartsWith;

static constexpr POINT kMiddle{90, 60};

static Program ProgramAt(int verse) {
    const ScratchFolder folder = FolderWithScripture();
    WriteSetting(folder, "MISC", "ReadVerse", std::to_string(verse));
    return StartProgram(folder);
}

static std::vector<std::string> RowsAfterRightClick(const Program& program, HWND pane) {
    Click(program, pane, kMiddle, MouseButton::Right);
    return Described(OpenMenuLines(program));
}

// ---- Keys -----------------------------------------------------------------------------------------------------------

static std::string KeyIn(const std::string& text) {
    const std::size_t tab = text.find('\t');
    return tab == std::string::npos ? "" : text.substr(tab + 1);
}

// Rows whose key differs from the menu's on purpose: a search with selected text has none, Enter and Delete work in the
// pane only, and the list's row for its note has always shown F10.
static bool HasKeyOfItsOwn(const MenuLine& line) {
    static const std::vector<std::string> own = {"Enter", "Delete"};
    const bool isListNote = line.command == IDM_NOTE_FOR_LIST && KeyIn(line.text) == "F10";
    const bool isSearch = line.text.find("with Selected Text") != std::string::npos;
    return isListNote || isSearch || std::ranges::find(own, KeyIn(line.text)) != own.end();
}

TEST(ContextMenus, ShowTheKeysOfTheMenu) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"grace"});
    int compared = 0;
    for (const HWND pane : {PassageOf(program), VerseListOf(program), NoteViewOf(program)}) {
        Click(program, pane, kMiddle, MouseButton::Right);
        for (const MenuLine& line : OpenMenuLines(program)) {
            if (line.command <= 0 || HasKeyOfItsOwn(line)) continue;
            EXPECT_EQ(KeyIn(line.text), KeyIn(MenuText(program, line.command))) << line.text;
            ++compared;
        }
        LeaveMenu(program);
    }
    EXPECT_GE(compared, 25);
}

// ---- Items ----------------------------------------------------------------------------------------------------------

TEST(PassageMenu, HasTheExpectedItems) {
    Program program = ProgramAt(31101);
    EXPECT_THAT(
        RowsAfterRightClick(program, PassageOf(program)),
        ElementsAre("162 Copy Selected Text\tCtrl+C (greyed)", "130 Copy Range...\tF6", "133 Save Range...",
                    "185 Print Range...", "---", "116 Go to Verse...\tAlt+G", "> Go to Book",
                    "119 Previous Chapter\tCtrl+PgUp", "120 Next Chapter\tCtrl+PgDn", "121 Previous Book\tCtrl+Home",
                    "122 Next Book\tCtrl+End", "---", "182 Today's Proverb", "> Go to Bookmark",
                    "> Set a Bookmark to Re 22:21", "---", "174 Go to Note for Re 22:21\tF10",
                    "351 Notes About Re 22:21\tCtrl+B", "---", "105 Word Search with Selected Text... (greyed)",
                    "106 Phrase Search with Selected Text... (greyed)",
                    "177 Search Notes with Selected Text... (greyed)"));
    KeepPictureOfMenu(program, "passage-menu");
    LeaveMenu(program);
}

TEST(PassageMenu, ListsTheBooksInFourColumns) {
    Program program = ProgramAt(0);
    Click(program, PassageOf(program), kMiddle, MouseButton::Right);
    const std::vector<MenuLine> books = OpenMenuLines(program, LineOf(program, "Go to Book"));
    ASSERT_THAT(books, SizeIs(66));
    std::vector<std::string> firstOfColumns;
    for (int book = 1; book <= 66; ++book) {
        const MenuLine& line = books[static_cast<std::size_t>(book - 1)];
        EXPECT_EQ(line.command, IDM_GOTO_BOOK + book);
        EXPECT_EQ(line.text, MenuText(program, IDM_GOTO_BOOK + book));
        if (line.state & (MF_MENUBREAK | MF_MENUBARBREAK)) firstOfColumns.push_back(line.text);
    }
    EXPECT_THAT(firstOfColumns, ElementsAre("Ecclesiastes", "Matthew", "James"));
    for (int row = 0; row < 6; ++row) Press(program, "Down");  // to the item that opens the submenu
    Press(program, "Right");
    KeepPictureOfMenu(program, "passage-menu-books");
    LeaveMenu(program);
}

TEST(PassageMenu, ListsTheBookmarks) {
    const ScratchFolder folder = FolderWithScripture();
    WriteSetting(folder, "BOOKMARKS", "2", "7213");
    WriteSetting(folder, "BOOKMARKS", "10", "31101");
    Program program = StartProgram(folder);
    Click(program, PassageOf(program), kMiddle, MouseButton::Right);
    std::vector<std::string> go, set;
    for (int number = 0; number < 10; ++number) {
        const std::string key = std::to_string((number + 1) % 10);
        const char* verse = number == 1 ? "1 Samuel 1:1" : number == 9 ? "Revelation 22:21" : "Genesis 1:1";
        go.push_back(std::to_string(IDM_GOTO_BOOKMARK + number) + " " + verse + "\tCtrl+" + key);
        set.push_back(std::to_string(IDM_SET_BOOKMARK + number) + " Set " + std::to_string(number + 1) + "\tCtrl+Alt+" +
                      key);
    }
    EXPECT_THAT(Described(OpenMenuLines(program, LineOf(program, "Go to Bookmark"))), ElementsAreArray(go));
    EXPECT_THAT(Described(OpenMenuLines(program, LineOf(program, "Set a Bookmark to Ge 1:1"))), ElementsAreArray(set));
    LeaveMenu(program);
}

TEST(VerseListMenu, HasTheExpectedItemsForTheCurrentEntry) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"grace"});
    Press(program, "Down");
    EXPECT_THAT(
        RowsAfterRightClick(program, VerseListOf(program)),
        ElementsAre("162 Copy Selected Text\tCtrl+C (greyed)", "131 Copy Verse List\tF7", "134 Save Verse List...",
                    "186 Print Verse List...", "341 Copy Hits by Book\tShift+F7", "---",
                    "108 Read Context of Ge 19:19\tEnter", "---", "187 Delete Ge 19:19 From List\tDelete", "---",
                    "175 Go to Note (Ge 19:19)\tF10", "---", "105 Word Search with Selected Text... (greyed)",
                    "106 Phrase Search with Selected Text... (greyed)",
                    "177 Search Notes with Selected Text... (greyed)"));
    KeepPictureOfMenu(program, "verse-list-menu");
    LeaveMenu(program);
}

TEST(VerseListMenu, DoesNotOpenForAnEmptyList) {
    Program program = StartProgram(FolderWithScripture());
    Click(program, VerseListOf(program), kMiddle, MouseButton::Right);
    EXPECT_FALSE(IsInMenu(program));
    EXPECT_EQ(FocusOf(program), VerseListOf(program));
    for (const char* keys : {"Menu", "Shift+F10"}) {
        Press(program, keys);
        EXPECT_FALSE(IsInMenu(program)) << keys;
    }
}

static std::vector<std::string> NoteRows(const char* selected, const char* listed, const char* bound) {
    return {"162 Copy Selected Text\tCtrl+C" + std::string(selected),
            "---",
            "176 Edit This Note\tAlt+E",
            "---",
            "170 Previous Note\tAlt+Up",
            "171 Next Note\tAlt+Down",
            "172 Previous Note Set\tAlt+Left",
            "173 Next Note Set\tAlt+Right",
            "---",
            "175 Go to Note for Verse in Verse List\tF9" + std::string(listed),
            "174 Go to Note for Verse in Passage\tF10",
            "169 Go to Note for Verse...\tAlt+N",
            "181 Read Verse for this Note\tF11",
            "351 Notes About This Verse\tCtrl+B",
            "---",
            "183 Bind Notes to Passage Window" + std::string(bound),
            "370 Export Notes...",
            "371 Import Notes...",
            "---",
            "188 Word Search with Selected Text..." + std::string(selected),
            "189 Phrase Search with Selected Text..." + std::string(selected),
            "190 Search Notes with Selected Text..." + std::string(selected)};
}

TEST(NoteMenu, EnablesItemsForTheSelectionAndTheList) {
    static constexpr char kGreyed[] = " (greyed)", kTicked[] = " (ticked)";
    Program program = StartProgram(FolderWithScripture());
    const HWND view = NoteViewOf(program);
    EXPECT_THAT(RowsAfterRightClick(program, view), ElementsAreArray(NoteRows(kGreyed, kGreyed, kTicked)));
    KeepPictureOfMenu(program, "note-menu");
    LeaveMenu(program);

    SelectRich(program, view, {0, 7});
    EXPECT_THAT(RowsAfterRightClick(program, view), ElementsAreArray(NoteRows("", kGreyed, kTicked)));
    const TextSelection selection = RichSelection(program, view);
    EXPECT_EQ(selection.end - selection.start, 7) << "the right click has touched the selection";
    ChooseRow(program, "Bind Notes");
    EXPECT_FALSE(IsTicked(program, IDM_BIND_NOTES));

    SearchFor(program, {"grace"});
    EXPECT_THAT(RowsAfterRightClick(program, view), ElementsAreArray(NoteRows(kGreyed, "", "")));
    LeaveMenu(program);
}

// The first click of a double click has opened the menu already. Where it is left in between, and soon enough, the
// second comes as a double click.
TEST(NoteMenu, OpensByARightDoubleClickToo) {
    const std::vector<std::string> rows = NoteRows(" (greyed)", " (greyed)", " (ticked)");
    Program program = StartProgram(FolderWithScripture());
    const HWND view = NoteViewOf(program);
    DoubleClick(program, view, kMiddle, MouseButton::Right);
    EXPECT_THAT(Described(OpenMenuLines(program)), ElementsAreArray(rows));
    LeaveMenu(program);
    PostMessageA(view, WM_RBUTTONDBLCLK, MK_RBUTTON, MAKELPARAM(kMiddle.x, kMiddle.y));
    Settle(program);
    EXPECT_THAT(Described(OpenMenuLines(program)), ElementsAreArray(rows));
    ChooseRow(program, "Bind Notes");
    EXPECT_FALSE(IsTicked(program, IDM_BIND_NOTES));
}

// ---- While a note is edited
// -------------------------------------------------------------------------------------------

static void ExpectRowsOfTheNote(const Program& program, const std::string& state) {
    EXPECT_THAT(RowsAfterRightClick(program, PassageOf(program)), Contains("174 Go to Note for Ge 1:1\tF10" + state));
    LeaveMenu(program);
    EXPECT_THAT(RowsAfterRightClick(program, VerseListOf(program)), Contains("175 Go to Note (Ge 6:8)\tF10" + state));
    LeaveMenu(program);
}

TEST(ContextMenus, GreyTheNoteItemsWhileANoteIsEdited) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"grace"});
    Command(program, IDM_EDIT_NOTE);
    ExpectRowsOfTheNote(program, " (greyed)");
    SendMessageA(ChildOfClass(program.frame, "NOTEEDIT", IDC_NOTE_EDITOR), WM_COMMAND, IDC_NOTE_CANCEL, 0);
    ExpectRowsOfTheNote(program, "");
}

// ---- Opening --------------------------------------------------------------------------------------------------------

static POINT CornerOf(HWND pane, bool ofClientArea) {
    POINT client{0, 0};
    ClientToScreen(pane, &client);
    const RECT window = RectOnScreen(pane);
    return ofClientArea ? client : POINT{window.left, window.top};
}

// A menu opened with the mouse appears at the point of the click, measured from the outer corner of the pane; in the
// note view it appears at the mouse itself.
static void ExpectMenuByMouse(const Program& program, HWND pane, bool whereTheMouseIs) {
    Click(program, pane, kMiddle, MouseButton::Right);
    EXPECT_EQ(FocusOf(program), pane);
    const POINT corner = CornerOf(pane, whereTheMouseIs);
    const RECT menu = PlaceOfMenu(program);
    EXPECT_EQ(menu.left, corner.x + kMiddle.x);
    EXPECT_EQ(menu.top, corner.y + kMiddle.y);
    Press(program, "Esc");
    EXPECT_EQ(CountOpenMenus(program), 0) << "a second menu was behind the first";
}

static void ExpectMenuByKeys(const Program& program, HWND pane) {
    const RECT window = RectOnScreen(pane);
    for (const char* keys : {"Menu", "Shift+F10"}) {
        Press(program, keys);
        EXPECT_EQ(OpenMenuLines(program).front().command, IDM_COPY) << keys;
        const RECT byKey = PlaceOfMenu(program);
        EXPECT_TRUE(PtInRect(&window, {byKey.left, byKey.top})) << keys;
        Press(program, "Esc");
        EXPECT_EQ(CountOpenMenus(program), 0) << keys;
        EXPECT_EQ(FocusOf(program), pane) << keys;
    }
}

TEST(ContextMenus, OpenByRightButtonMenuKeyAndShiftF10) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"grace"});
    for (const HWND pane : {PassageOf(program), VerseListOf(program), NoteViewOf(program)}) {
        ExpectMenuByMouse(program, pane, pane == NoteViewOf(program));
        ExpectMenuByKeys(program, pane);
    }
}

TEST(ContextMenus, DoNotOpenOverTheScrollBar) {
    Program program = StartProgram(FolderWithScripture());
    const RECT client = ClientRectOf(PassageOf(program));
    Click(program, PassageOf(program), {client.right + 5, client.bottom / 2}, MouseButton::Right);
    EXPECT_EQ(CountOpenMenus(program), 0);
}

// ---- What items do --------------------------------------------------------------------------------------------------

TEST(PassageMenu, ItemsRunTheirCommands) {
    Program program = ProgramAt(0);
    Command(program, IDM_FOCUS_PASSAGE);
    const auto choose = [&](auto... row) {
        Press(program, "Menu");
        ChooseRow(program, row...);
    };
    choose("Go to Book", "Exodus");
    EXPECT_EQ(Top(program), "Exodus 1:1");
    choose("Next Chapter");
    EXPECT_EQ(Top(program), "Exodus 2:1");
    choose("Set a Bookmark to Ex 2:1", "Set 3");
    EXPECT_EQ(MenuText(program, IDM_GOTO_BOOKMARK + 2), "Exodus 2:1\tCtrl+3");
    choose("Go to Bookmark", "Genesis 1:1\tCtrl+4");
    EXPECT_EQ(Top(program), "Genesis 1:1");
    choose("Go to Bookmark", "Exodus 2:1\tCtrl+3");
    EXPECT_EQ(Top(program), "Exodus 2:1");
    choose("Go to Note for Ex 2:1");
    EXPECT_EQ(StatusPart(program, 2), "Exodus 2:1");
    choose("Go to Verse...");
    EXPECT_NE(WaitForDialog(program, "Go To Verse"), nullptr);
}

TEST(PassageMenu, ForwardsCommandsToTheFrame) {
    Program program = ProgramAt(0);
    const struct {
        int command;
        const char* top;
    } kRows[] = {
        {IDM_GOTO_BOOK + 66, "Revelation 1:1"}, {IDM_GOTO_BOOK + 67, "Revelation 1:1"},
        {IDM_GOTO_BOOK, "Revelation 1:1"},      {IDM_GOTO_BOOK + 1, "Genesis 1:1"},
        {IDM_NEXT_CHAPTER, "Genesis 2:1"},      {IDM_PREVIOUS_CHAPTER, "Genesis 1:1"},
        {IDM_NEXT_BOOK, "Exodus 1:1"},          {IDM_SET_BOOKMARK + 9, "Exodus 1:1"},
        {IDM_PREVIOUS_BOOK, "Genesis 1:1"},     {IDM_GOTO_BOOKMARK + 9, "Exodus 1:1"},
        {IDM_GOTO_BOOKMARK, "Genesis 1:1"},     {IDM_NEXT_VERSE, "Genesis 1:1"},
        {IDM_VIEW_PASSAGE, "Genesis 1:1"},
    };
    for (const auto& [command, top] : kRows) {
        PostMessageA(PassageOf(program), WM_COMMAND, static_cast<WPARAM>(command), 0);
        EXPECT_EQ(Top(program), top) << command;
    }
    EXPECT_TRUE(IsShown(PassageOf(program))) << "the pane has forwarded a command that it should drop";

    const std::pair<int, const char*> kDialogs[] = {
        {IDM_GOTO_VERSE, "Go To Verse"}, {IDM_COPY_RANGE, "Copy Range"}, {IDM_SAVE_RANGE, "Save Range"}};
    for (const auto& [command, title] : kDialogs) {
        PostMessageA(PassageOf(program), WM_COMMAND, static_cast<WPARAM>(command), 0);
        PostMessageA(WaitForDialog(program, title), WM_COMMAND, IDCANCEL, 0);
        WaitForNoDialog(program);
    }
    PostMessageA(PassageOf(program), WM_COMMAND, IDM_TODAYS_PROVERB, 0);
    EXPECT_THAT(Top(program), StartsWith("Proverbs "));
}

TEST(VerseListMenu, ItemsRunTheirCommands) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"grace"});
    const auto choose = [&](const char* row) {
        Press(program, "Menu");
        ChooseRow(program, row);
    };
    choose("Read Context of Ge 6:8");
    EXPECT_EQ(Top(program), "Genesis 6:8");
    choose("Delete Ge 6:8 From List");
    EXPECT_EQ(ListStrings(ReferenceListOf(program)).front(), "Genesis 19:19");
    EXPECT_EQ(FocusOf(program), VerseListOf(program));
    choose("Go to Note (Ge 19:19)");
    EXPECT_EQ(StatusPart(program, 2), "Genesis 19:19");
}

TEST(VerseListMenu, DoesNotForwardOtherCommands) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"grace"});
    for (const int command : {IDM_VIEW_LIST, IDM_GOTO_BOOK + 5, IDM_NOTE_FOR_PASSAGE, IDM_GOTO_VERSE}) {
        PostMessageA(VerseListOf(program), WM_COMMAND, static_cast<WPARAM>(command), 0);
        Settle(program);
        EXPECT_FALSE(HasDialog(program)) << command;
    }
    EXPECT_TRUE(IsShown(VerseListOf(program)));
    EXPECT_EQ(Top(program), "Genesis 1:1");
}

TEST(NoteMenu, ItemsRunTheirCommands) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", {{0, "First."}, {500, "Middle."}});
    Program program = StartProgram(folder);
    const HWND view = NoteViewOf(program);
    Click(program, view);
    const auto choose = [&](const char* row) {
        Press(program, "Menu");
        ChooseRow(program, row);
    };
    choose("Next Note");
    EXPECT_EQ(TextOf(view), "Middle.");
    choose("Read Verse for this Note");
    EXPECT_EQ(Top(program), "Genesis 20:5");
    SelectRich(program, view, {0, 6});
    SetClipboardText("before");
    choose("Copy Selected Text");
    EXPECT_EQ(ClipboardText(), "Middle");
    choose("Word Search with Selected Text...");
    EXPECT_EQ(TextOf(WaitForDialog(program, "Word Search"), IDC_SEARCH_TEXT), "Middle");
}
