// Commands that move the Passage: chapters, books, single verses, Go To Verse, the note's verse, a hit's context.

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/passage_pane.h"

using testing::ElementsAre;

namespace {

struct Move {
    const char* from;
    const char* to;
};

struct Moves {
    const char* name;
    int command;
    const char* keys;
    std::vector<Move> moves;
};

void PrintTo(const Moves& moves, std::ostream* out) {
    *out << moves.name;
}

struct Navigation : testing::TestWithParam<Moves> {};

}  // namespace

TEST_P(Navigation, MovesToTheExpectedVerse) {
    Program program = StartProgram(FolderWithScripture());
    for (const auto& [from, to] : GetParam().moves) {
        GoTo(program, from);
        if (*GetParam().keys != '\0') {
            Press(program, GetParam().keys);
            EXPECT_EQ(Top(program), to) << "by key from " << from;
            GoTo(program, from);
        }
        Command(program, GetParam().command);
        EXPECT_EQ(Top(program), to) << "by command from " << from;
    }
}

static const Moves kNavigation[] = {
    {"PreviousChapter",
     IDM_PREVIOUS_CHAPTER,
     "Ctrl+PgUp",
     {{"Ge 2:5", "Genesis 1:1"},
      {"Ge 3:1", "Genesis 2:1"},
      {"Ge 1:20", "Genesis 1:1"},
      {"Ge 1:1", "Genesis 1:1"},
      {"Ex 1:7", "Genesis 50:1"},
      {"Mt 1:1", "Malachi 4:1"}}},
    {"NextChapter",
     IDM_NEXT_CHAPTER,
     "Ctrl+PgDn",
     {{"Ge 1:5", "Genesis 2:1"},
      {"Ge 50:26", "Exodus 1:1"},
      {"3Jo 1:2", "Jude 1:1"},
      {"Re 22:3", "Revelation 22:21"},
      {"Re 22:21", "Revelation 22:21"}}},
    {"PreviousBook",
     IDM_PREVIOUS_BOOK,
     "Ctrl+Home",
     {{"Ex 5:4", "Genesis 1:1"}, {"Ge 40:1", "Genesis 1:1"}, {"Mt 1:1", "Malachi 1:1"}, {"Re 2:2", "Jude 1:1"}}},
    {"NextBook",
     IDM_NEXT_BOOK,
     "Ctrl+End",
     {{"Ge 1:1", "Exodus 1:1"}, {"Mal 4:6", "Matthew 1:1"}, {"Re 1:1", "Revelation 22:21"}}},
    {"PreviousVerse", IDM_PREVIOUS_VERSE, "", {{"Ge 2:1", "Genesis 1:31"}, {"Ge 1:1", "Genesis 1:1"}}},
    {"NextVerse", IDM_NEXT_VERSE, "", {{"Ge 1:31", "Genesis 2:1"}, {"Re 22:21", "Revelation 22:21"}}},
};
INSTANTIATE_TEST_SUITE_P(Passage, Navigation, testing::ValuesIn(kNavigation),
                         [](const auto& row) { return row.param.name; });

TEST(Navigation, GoToBookShowsTheFirstVerse) {
    Program program = StartProgram(FolderWithScripture());
    for (const auto& [number, top] : {std::pair{1, "Genesis 1:1"},
                                      {19, "Psalms 1:1"},
                                      {22, "Song of Solomon 1:1"},
                                      {40, "Matthew 1:1"},
                                      {62, "1 John 1:1"},
                                      {66, "Revelation 1:1"}}) {
        Command(program, IDM_GOTO_BOOK + number);
        EXPECT_EQ(Top(program), top);
    }
}

TEST(Navigation, ShowsAHiddenPassage) {
    const ScratchFolder folder = FolderWithScripture();
    WriteSetting(folder, "VIEW", "ReadWindow", "0");
    WriteSetting(folder, "MISC", "ReadVerse", "115");
    const struct {
        int command;
        const char* top;
    } kCommands[] = {{IDM_PREVIOUS_CHAPTER, "Genesis 4:1"}, {IDM_NEXT_BOOK, "Exodus 1:1"},
                     {IDM_NEXT_VERSE, "Exodus 1:2"},        {IDM_PREVIOUS_VERSE, "Exodus 1:1"},
                     {IDM_VERSE_FOR_NOTE, "Exodus 1:1"},    {IDM_CONTEXT, "Exodus 1:1"}};
    Program program = StartProgram(folder);
    for (const auto& [command, top] : kCommands) {
        ASSERT_FALSE(IsShown(PassageOf(program))) << command;
        Command(program, command);
        EXPECT_TRUE(IsShown(PassageOf(program))) << command;
        EXPECT_TRUE(IsTicked(program, IDM_VIEW_PASSAGE)) << command;
        EXPECT_EQ(Top(program), top) << command;
        Command(program, IDM_VIEW_PASSAGE);
    }
}

// ---- Go To Verse ----------------------------------------------------------------------------------------------------

static HWND OpenGotoVerse(const Program& program) {
    PostMessageA(program.frame, WM_COMMAND, IDM_GOTO_VERSE, 0);
    return WaitForDialog(program, "Go To Verse");
}

TEST(GotoVerse, SuggestsTheCurrentVerse) {
    Program program = StartProgram(FolderWithScripture());
    GoTo(program, "2 Samuel 3:4");
    Press(program, "Alt+g");
    const HWND dialog = WaitForDialog(program, "Go To Verse");
    EXPECT_EQ(TextOf(dialog, IDC_REFERENCE), "2Sa 3:4");
    EXPECT_EQ(FocusOf(program), Child(dialog, {IDC_REFERENCE}));
    EXPECT_THAT(ButtonsOf(dialog), ElementsAre("OK", "Cancel", "&Help"));
    EXPECT_THAT(TabOrder(program, dialog), ElementsAre(IDC_REFERENCE, IDOK, IDCANCEL, IDC_HELP_BUTTON));
    SavePicture(PictureOfWindow(program.frame), "goto-verse");
    Type(program, "joh 3:16");  // replaces the text, which is selected
    Press(program, "Enter");
    WaitForNoDialog(program);
    EXPECT_EQ(Top(program), "John 3:16");
    EXPECT_EQ(FocusOf(program), PassageOf(program));
}

TEST(GotoVerse, GoesToTheTypedReference) {
    Program program = StartProgram(FolderWithScripture());
    const Move kTyped[] = {
        {"Ps 23", "Psalms 23:1"},   {"Jude", "Jude 1:1"},
        {"Jud 2", "Judges 2:1"},    {"Phil 4:8", "Philippians 4:8"},
        {"1 J 1:9", "Genesis 1:9"}, {"Ps 1 1", "Psalms 11:1"},
        {" ", "Genesis 1:1"},       {"Ge 51:1", "Genesis 50:26"},
        {"Jude 2:3", "Jude 1:25"},  {"re 22.21", "Revelation 22:21"},
        {"acts 2:1", "Acts 2:1"},
    };
    for (const auto& [typed, top] : kTyped) {
        GoTo(program, typed);
        EXPECT_EQ(Top(program), top) << "\"" << typed << "\"";
    }
}

TEST(GotoVerse, StaysOpenForAnInvalidReference) {
    Program program = StartProgram(FolderWithScripture());
    HWND dialog = OpenGotoVerse(program);
    for (const char* typed : {"Xyz 1:1", "Ge 0:1", "Ge 1:0"}) {
        SetDlgItemTextA(dialog, IDC_REFERENCE, typed);
        Press(program, "Enter");
        const HWND box = WaitForDialog(program, "Error");
        EXPECT_EQ(MessageText(box), "Unrecognized Refrence");  // (sic)
        Press(program, "Enter");
        WaitUntil(program, "the box to go", [&] { return !IsWindow(box); });
        ASSERT_TRUE(IsWindow(dialog)) << typed;
        EXPECT_EQ(FocusOf(program), Child(dialog, {IDC_REFERENCE}));
    }
    Press(program, "Esc");
    WaitForNoDialog(program);
    EXPECT_EQ(Top(program), "Genesis 1:1");
}

TEST(GotoVerse, OnlyShowsThePassageWhenEmptyOrCancelled) {
    const ScratchFolder folder = FolderWithScripture();
    WriteSetting(folder, "MISC", "ReadVerse", "115");
    Program program = StartProgram(folder);
    for (const bool cancel : {true, false}) {
        if (IsShown(PassageOf(program))) Command(program, IDM_VIEW_PASSAGE);
        const HWND dialog = OpenGotoVerse(program);
        SetDlgItemTextA(dialog, IDC_REFERENCE, cancel ? "Ps 1:1" : "");
        Press(program, cancel ? "Esc" : "Enter");
        WaitForNoDialog(program);
        Settle(program);
        EXPECT_TRUE(IsShown(PassageOf(program)));
        EXPECT_TRUE(IsTicked(program, IDM_VIEW_PASSAGE));
        EXPECT_EQ(FocusOf(program), PassageOf(program));
        EXPECT_EQ(Top(program), "Genesis 5:10");
    }
}

TEST(GotoVerse, IsCentredOverTheUpperPartOfTheFrame) {
    Program program = StartProgram(FolderWithScripture());
    PlaceFrame(program, {100, 50, 1100, 850});
    const RECT dialog = RectOnScreen(OpenGotoVerse(program));
    EXPECT_EQ(dialog.left - 100, (1000 - (dialog.right - dialog.left)) / 2);
    EXPECT_EQ(dialog.top - 50, (720 - (dialog.bottom - dialog.top)) / 2);
}

TEST(GotoVerse, AcceptsAtMost99Characters) {
    Program program = StartProgram(FolderWithScripture());
    const HWND dialog = OpenGotoVerse(program);
    EXPECT_EQ(SendDlgItemMessageA(dialog, IDC_REFERENCE, EM_GETLIMITTEXT, 0, 0), 99);
}
