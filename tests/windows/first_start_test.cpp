// The first start in a folder that contains only the scripture: what is created, shown and saved.

#include <algorithm>

#include <windows.h>

#include <commctrl.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/driver/driver.h"

using testing::ElementsAre;

static std::string DefaultIndex() {
    std::string bytes;
    for (unsigned verse = 0; verse < 31102; ++verse)
        for (const unsigned shift : {0u, 8u, 16u, 24u}) bytes.push_back(static_cast<char>((verse >> shift) & 0xFF));
    return bytes;
}

TEST(FirstStart, ShowsGenesis) {
    Program program = StartProgram(FolderWithScripture());
    EXPECT_EQ(TextOf(program.frame), "Versewell97");
    EXPECT_FALSE(HasDialog(program));
    EXPECT_EQ(StatusPart(program, 0), "");
    EXPECT_EQ(StatusPart(program, 1), "");
    EXPECT_EQ(StatusPart(program, 2), "Genesis 1:1");
    EXPECT_EQ(StatusPart(program, 3), "Genesis 1:1");
    EXPECT_EQ(StatusPart(program, 4), "Ge 1:1 - Re 22:21");
    EXPECT_EQ(FocusOf(program), program.frame);
    SavePicture(PictureOfWindow(program.frame), "first-start");
}

TEST(FirstStart, ShowsTabsAndPanes) {
    Program program = StartProgram(FolderWithScripture());
    const HWND list = Child(program.frame, {IDC_LIST_TABS});
    const HWND passage = Child(program.frame, {IDC_PASSAGE_TABS});
    const HWND notes = Child(program.frame, {IDC_NOTE_TABS});
    EXPECT_THAT(TabLabels(program, list), ElementsAre("Verse List", "Reference List"));
    EXPECT_THAT(TabLabels(program, passage), ElementsAre("Passage"));
    EXPECT_THAT(TabLabels(program, notes), ElementsAre("My Notes"));
    EXPECT_EQ(ClassOf(Child(list, {IDC_VERSE_LIST})), "VERSELIST");
    EXPECT_EQ(ClassOf(Child(passage, {IDC_PASSAGE})), "READWINDOW");
    EXPECT_EQ(ClassOf(Child(notes, {IDC_NOTES})), "NOTEWND");
    EXPECT_STRCASEEQ(ClassOf(Child(notes, {IDC_NOTES, IDC_NOTE_VIEW})).c_str(), "RICHEDIT");
    EXPECT_TRUE(IsShown(Child(list, {IDC_VERSE_LIST})));
    EXPECT_FALSE(IsShown(Child(list, {IDC_REFERENCE_LIST})));
    EXPECT_FALSE(IsShown(ChildOfClass(program.frame, "NOTEEDIT", IDC_NOTE_EDITOR)));
}

TEST(FirstStart, CreatesMyNotes) {
    Program program = StartProgram(FolderWithScripture());
    EXPECT_EQ(ReadFile(program.folder, "My Notes.nmi"), DefaultIndex());
    EXPECT_EQ(ReadFile(program.folder, "My Notes.nmd"), std::string(31102, '\0'));
    EXPECT_FALSE(HasFile(program.folder, "Versewell.INI"));
}

TEST(FirstStart, KeepsExistingNotes) {
    const ScratchFolder folder = FolderWithScripture();
    WriteFile(folder, "Mine.nmi", DefaultIndex());
    WriteFile(folder, "Mine.nmd", std::string(31102, '\0'));
    Program program = StartProgram(folder);
    EXPECT_THAT(TabLabels(program, Child(program.frame, {IDC_NOTE_TABS})), ElementsAre("Mine"));
    EXPECT_FALSE(HasFile(folder, "My Notes.nmi"));
}

TEST(FirstStart, WritesSettingsOnExit) {
    Program program = StartProgram(FolderWithScripture());
    const RECT frame = RectOnScreen(program.frame);
    const ScratchFolder folder = program.folder;
    EXPECT_EQ(CloseProgram(program), 0);
    EXPECT_EQ(Setting(folder, "MISC", "ReadVerse"), "0");
    EXPECT_EQ(Setting(folder, "MISC", "BindNotes"), "1");
    EXPECT_EQ(Setting(folder, "MISC", "XPos"), std::to_string(frame.left));
    EXPECT_EQ(Setting(folder, "MISC", "Width"), std::to_string(frame.right - frame.left));
    EXPECT_EQ(Setting(folder, "SEARCH", "EndVerse"), "31101");
    EXPECT_EQ(Setting(folder, "OPTIONS", "ReadWindowFontName"), "Times New Roman");
    EXPECT_EQ(Setting(folder, "OPTIONS", "NoteFontHeight"), "12");
    EXPECT_EQ(Setting(folder, "BOOKMARKS", "10"), "0");

    const std::string file = ReadFile(folder, "Versewell.INI");
    std::size_t last = 0;
    for (const char* section : {"[SEARCH]", "[FORMAT]", "[VIEW]", "[BOOKMARKS]", "[OPTIONS]", "[MISC]"}) {
        const std::size_t at = file.find(section);
        ASSERT_NE(at, std::string::npos) << section;
        EXPECT_GE(at, last) << section;
        last = at;
    }
}

TEST(FirstStart, RestoresPlaceAndVerse) {
    const ScratchFolder folder = FolderWithScripture();
    const RECT place{90, 70, 890, 670};
    {
        Program program = StartProgram(folder);
        PlaceFrame(program, place);
        Command(program, IDM_GOTO_BOOK + 19);
        EXPECT_EQ(StatusPart(program, 3), "Psalms 1:1");
        CloseProgram(program);
    }
    Program program = StartProgram(folder);
    const RECT again = RectOnScreen(program.frame);
    EXPECT_TRUE(EqualRect(&again, &place)) << again.left << "," << again.top;
    EXPECT_EQ(StatusPart(program, 3), "Psalms 1:1");
}

namespace {

struct FailedStart {
    const char* file;
    bool saysSo;  // false: no message, and the frame opens half-started
};

void PrintTo(const FailedStart& start, std::ostream* out) {
    *out << start.file;
}

struct MissingFile : testing::TestWithParam<FailedStart> {};

}  // namespace

TEST_P(MissingFile, PreventsANormalStart) {
    const ScratchFolder folder = FolderWithScripture();
    std::filesystem::remove(folder.path / GetParam().file);
    if (!GetParam().saysSo) {
        Program program = StartProgram(folder);
        EXPECT_FALSE(HasDialog(program));
        for (const int id : {IDM_COPY_VERSE, IDM_WORD_SEARCH, IDM_TODAYS_PROVERB, IDM_NEXT_NOTE}) {
            PostMessageA(program.frame, WM_COMMAND, static_cast<WPARAM>(id), 0);
            Settle(program);
            if (HasDialog(program)) Press(program, "Esc");
        }
        EXPECT_EQ(CloseProgram(program), 0);
    } else {
        Program program = LaunchProgram(folder);
        const HWND box = WaitForDialog(program, "Initialization failure");
        const std::string text = MessageText(box);
        EXPECT_EQ(text.substr(0, 44), "Initialization of Versewell97 incomplete.\n\nO");
        EXPECT_NE(text.find("\"RICHED32.DLL\" is missing from your \\WINDOWS\\SYSTEM folder."), std::string::npos)
            << text;
        EXPECT_THAT(ButtonsOf(box), ElementsAre("OK"));
        SavePicture(PictureOfWindow(box), "initialization-failure");
        PostMessageA(box, WM_COMMAND, IDOK, 0);
        EXPECT_EQ(WaitForExit(program), 0);
    }
    EXPECT_FALSE(HasFile(folder, "Versewell.INI"));
}

INSTANTIATE_TEST_SUITE_P(FirstStart, MissingFile,
                         testing::Values(FailedStart{"_avwrds.dat", true}, FailedStart{"_avwptr.dat", true},
                                         FailedStart{"_avwidx.dat", false}, FailedStart{"_avvidx.dat", true},
                                         FailedStart{"_avtext.dat", true}),
                         [](const auto& row) { return std::string(row.param.file).substr(1, 6); });
