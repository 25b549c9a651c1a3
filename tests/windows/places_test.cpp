// Back and Forward through the places that were read.

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/search_steps.h"

using testing::ElementsAre;

static constexpr int kSummary = 0, kEntry = 1, kNote = 2;  // parts of the status bar

// The Passage's top and the note's verse.
static std::string Shown(const Program& program) {
    return Top(program) + ", " + StatusPart(program, kNote);
}

// Drags the thumb of the Passage's scroll bar, which is at its upper end.
static void DragThumb(const Program& program, LONG by) {
    const HWND pane = PassageOf(program);
    const LONG x = ClientRectOf(pane).right + GetSystemMetrics(SM_CXVSCROLL) / 2;
    const LONG y = GetSystemMetrics(SM_CYVSCROLL) + 4;
    Drag(program, pane, {x, y}, {x, y + by});
}

static void PressXButton(const Program& program, HWND window, WORD button) {
    PostMessageA(window, WM_XBUTTONDOWN, MAKEWPARAM(0, button), 0);
    PostMessageA(window, WM_XBUTTONUP, MAKEWPARAM(0, button), 0);
    Settle(program);
}

TEST(Places, AreLeftByJumpsAndNotByScrolling) {
    Program program = StartProgram(FolderWithScripture());
    EXPECT_TRUE(IsGreyed(program, IDM_BACK) && IsGreyed(program, IDM_FORWARD));
    GoTo(program, "Ex 3:2");
    for (const char* key : {"Down", "Down"}) Press(program, key);
    EXPECT_EQ(Shown(program), "Exodus 3:4, Exodus 3:4");
    Press(program, "Ctrl+PgDn");
    Command(program, IDM_GOTO_BOOK + 66);
    Command(program, IDM_GOTO_BOOK + 66);  // where one is already
    EXPECT_FALSE(IsGreyed(program, IDM_BACK));
    EXPECT_TRUE(IsGreyed(program, IDM_FORWARD));
    for (const char* place : {"Exodus 4:1", "Exodus 3:4", "Genesis 1:1", "Genesis 1:1"}) {
        Press(program, "Back");
        EXPECT_EQ(Shown(program), std::string(place) + ", " + place);
    }
    EXPECT_TRUE(IsGreyed(program, IDM_BACK));
    for (const char* place : {"Exodus 3:4", "Exodus 4:1", "Revelation 1:1", "Revelation 1:1"}) {
        Press(program, "Shift+Back");
        EXPECT_EQ(Shown(program), std::string(place) + ", " + place);
    }
    EXPECT_TRUE(IsGreyed(program, IDM_FORWARD));

    for (const int thumb : {30000, 20000, 10000}) ScrollPassage(program, SB_THUMBTRACK, thumb);
    ScrollPassage(program, SB_THUMBPOSITION, 10000);
    ScrollPassage(program, SB_ENDSCROLL);
    const std::string dragged = Top(program);
    Press(program, "Back");
    EXPECT_EQ(Top(program), "Revelation 1:1") << "the drag was one jump";
    Press(program, "Shift+Back");
    EXPECT_EQ(Top(program), dragged);
    PressXButton(program, PassageOf(program), XBUTTON1);
    PressXButton(program, Child(program.frame, {IDC_TOOLBAR}), XBUTTON1);
    EXPECT_EQ(Top(program), "Exodus 4:1");
    PressXButton(program, NoteViewOf(program), XBUTTON2);
    EXPECT_EQ(Top(program), "Revelation 1:1");
    SendMessageA(program.frame, WM_APPCOMMAND, 0, MAKELPARAM(0, APPCOMMAND_BROWSER_BACKWARD));
    EXPECT_EQ(Top(program), "Exodus 4:1");
    Press(program, "F3");
    Press(program, "Back");
    EXPECT_TRUE(IsShown(NoteViewOf(program)) && !IsShown(PassageOf(program))) << "its note can be seen";
    Press(program, "F4");
    Press(program, "Back");
    EXPECT_TRUE(IsShown(PassageOf(program))) << "nothing of the place could be seen";
    EXPECT_EQ(Top(program), "Genesis 1:1");
}

TEST(Places, AreLeftByADragOfTheThumb) {
    Program program = StartProgram(FolderWithScripture());
    DragThumb(program, 60);
    const std::string dragged = Shown(program);
    EXPECT_NE(dragged, "Genesis 1:1, Genesis 1:1");
    Press(program, "Back");
    EXPECT_EQ(Shown(program), "Genesis 1:1, Genesis 1:1");
    EXPECT_TRUE(IsGreyed(program, IDM_BACK)) << "the drag was one jump";
    Press(program, "Shift+Back");
    EXPECT_EQ(Shown(program), dragged);
}

static ScratchFolder FolderWithReferences() {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", {{57, "see\r\n# Ge 19:19; Ex 2:4"}, {58, "next"}});  // Genesis 3:2
    WriteNoteSet(folder, "Other", {{57, "other"}});
    for (const char* place : {"NoteVerse", "ReadVerse"}) WriteSetting(folder, "MISC", place, "57");
    WriteSetting(folder, "MISC", "Note", "0");
    return folder;
}

TEST(Places, HaveTheirListsAndNotes) {
    Program program = StartProgram(FolderWithReferences());
    SearchFor(program, {"grace"});
    const std::string summary = StatusPart(program, kSummary);
    for (const char* key : {"Down", "Down", "Down"}) Press(program, key);
    const std::string entry = StatusPart(program, kEntry);
    Press(program, "Alt+3");  // without the caret in the list
    const Picture found = PictureOfClient(VerseListOf(program));
    DoubleClickNote(program, "Ge 19:19");
    EXPECT_EQ(StatusPart(program, kSummary), "x-refs for Genesis 3:2");
    Press(program, "Alt+1");
    Press(program, "Enter");
    EXPECT_EQ(Shown(program), "Genesis 19:19, Genesis 19:19");

    Press(program, "Back");
    EXPECT_EQ(Shown(program), "Genesis 3:2, Genesis 3:2");
    EXPECT_EQ(TextOf(NoteViewOf(program)), "see\r\n# Ge 19:19; Ex 2:4") << "the note that the reference is in";
    EXPECT_THAT(ListStrings(ReferenceListOf(program)), ElementsAre("Ge 19:19", "Ex 2:4"));
    Press(program, "Back");
    EXPECT_EQ(StatusPart(program, kSummary), summary);
    EXPECT_EQ(StatusPart(program, kEntry), entry);
    Press(program, "Alt+3");
    const RECT differing = DifferingArea(found, PictureOfClient(VerseListOf(program)));
    EXPECT_TRUE(IsRectEmpty(&differing)) << "with its marks";
    EXPECT_EQ(ListStrings(ReferenceListOf(program)).size(), 159u);
    EXPECT_FALSE(IsGreyed(program, IDM_SAVE_VERSE_LIST));
    Press(program, "Back");
    EXPECT_THAT(ListStrings(ReferenceListOf(program)), ElementsAre());
    EXPECT_EQ(StatusPart(program, kEntry), "");
    EXPECT_TRUE(IsGreyed(program, IDM_SAVE_VERSE_LIST));
    for (int step = 0; step < 2; ++step) Press(program, "Shift+Back");
    EXPECT_THAT(ListStrings(ReferenceListOf(program)), ElementsAre("Ge 19:19", "Ex 2:4"));
    EXPECT_EQ(StatusPart(program, kSummary), "x-refs for Genesis 3:2");

    Press(program, "Alt+Down");
    Press(program, "Alt+Right");
    EXPECT_EQ(TextOf(NoteViewOf(program)), "No note for Genesis 3:3.");
    PressXButton(program, program.frame, XBUTTON1);
    EXPECT_EQ(TextOf(NoteViewOf(program)), "next");
    EXPECT_EQ(SelectedTab(Child(program.frame, {IDC_NOTE_TABS})), 0);
    EXPECT_EQ(Shown(program), "Genesis 3:2, Genesis 3:3");
}

static LRESULT FirstLineOfNote(const Program& program) {
    Settle(program);
    return SendMessageA(NoteViewOf(program), EM_GETFIRSTVISIBLELINE, 0, 0);
}

TEST(Places, HaveTheirNotesWhereTheyWereRead) {
    const ScratchFolder folder = FolderWithReferences();
    std::string text = "# Ge 19:19\r\n";
    for (int line = 1; line < 100; ++line) text += "line " + std::to_string(line) + "\r\n";
    for (const char* set : {"Mine", "Other"}) WriteNoteSet(folder, set, {{57, text}, {kLastVerse, text}});
    Program program = StartProgram(folder);
    const auto lineAfterPages = [&](int count) {
        for (int page = 0; page < count; ++page) SendMessageA(NoteViewOf(program), WM_VSCROLL, SB_PAGEDOWN, 0);
        return FirstLineOfNote(program);
    };
    const LRESULT first = lineAfterPages(3);
    EXPECT_GT(first, 5);
    GoTo(program, "Re 22:21");
    EXPECT_EQ(StatusPart(program, kNote), "Revelation 22:21");
    EXPECT_EQ(FirstLineOfNote(program), 0) << "another note begins at its top";
    const LRESULT second = lineAfterPages(1);
    EXPECT_NE(second, first);
    Press(program, "Back");
    EXPECT_EQ(StatusPart(program, kNote), "Genesis 3:2");
    EXPECT_EQ(FirstLineOfNote(program), first);
    Press(program, "Shift+Back");
    EXPECT_EQ(StatusPart(program, kNote), "Revelation 22:21");
    EXPECT_EQ(FirstLineOfNote(program), second);
    const HWND tabs = Child(program.frame, {IDC_NOTE_TABS});
    const int set = SelectedTab(tabs);
    ClickTab(program, tabs, 1 - set);
    EXPECT_EQ(FirstLineOfNote(program), 0);
    Press(program, "Back");
    EXPECT_EQ(SelectedTab(tabs), set);
    EXPECT_EQ(FirstLineOfNote(program), second) << "in its set";
}

TEST(Places, BringBackWhatWasDeletedFromTheirLists) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"rasor"});
    const std::vector<std::string> found = ListStrings(ReferenceListOf(program));
    const std::string summary = StatusPart(program, kSummary);
    for (const char* key : {"Delete", "Delete"}) Press(program, key);
    SearchFor(program, {"grace"});
    Press(program, "Back");
    EXPECT_EQ(ListStrings(ReferenceListOf(program)).size(), found.size() - 2);
    Press(program, "Alt+1");
    for (int step = 0; step < 2; ++step) Press(program, "Ctrl+z");
    EXPECT_EQ(ListStrings(ReferenceListOf(program)), found);
    EXPECT_EQ(StatusPart(program, kSummary), summary);
}

// The keys are those of the editor while it is open, and its note must not change.
TEST(Places, WaitForTheEditor) {
    Program program = ProgramInEditor("");
    Type(program, "abc");
    Press(program, "Back");
    EXPECT_EQ(TextInEditor(program), "ab");
    GoTo(program, "Ex 3:2");
    EXPECT_TRUE(IsGreyed(program, IDM_BACK));
    Press(program, "Back");
    PressXButton(program, PassageOf(program), XBUTTON1);
    EXPECT_EQ(Top(program), "Exodus 3:2");
    EXPECT_EQ(TextInEditor(program), "ab");
    Press(program, "Alt+3");
    Press(program, "Ctrl+s");
    Press(program, "Esc");
    EXPECT_FALSE(IsGreyed(program, IDM_BACK));
    Press(program, "Back");
    EXPECT_EQ(Top(program), "Genesis 3:2");
}
